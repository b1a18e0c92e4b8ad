#include "window/Application.h"

#include <QApplication>
#include <QCommandLineParser>

#include <sys/resource.h>

namespace
{

// A core file would hold the password and every record in clear.
void switchOffCoreFiles()
{
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
}

} // namespace

int main(int argc, char **argv)
{
    switchOffCoreFiles();
    QApplication qtApplication(argc, argv);
    Application application;

    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("documents"), QApplication::tr("Documents to open."),
                                 QStringLiteral("[documents…]"));
    parser.process(qtApplication);
    application.start(parser.positionalArguments());
    return QApplication::exec();
}
