#include "foundation/ProcessSetup.h"
#include "window/Application.h"

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char **argv)
{
    Foundation::prepareProcess();
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
