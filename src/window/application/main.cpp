#include "platform/ProcessSetup.h"
#include "shell/SingleInstance.h"
#include "window/application/Application.h"

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
    parser.addPositionalArgument(QStringLiteral("documents"), Application::tr("Documents to open."),
                                 QStringLiteral("[documents…]"));
    parser.process(qtApplication);

    SingleInstance instance;
    if (instance.handOver(parser.positionalArguments()))
        return 0;
    QObject::connect(&instance, &SingleInstance::startedAgain, &application, &Application::startAgain);
    // Called from the event loop, so that a signal during an alert at the start can end the program.
    QMetaObject::invokeMethod(
        &application, [&] { application.start(parser.positionalArguments()); }, Qt::QueuedConnection);
    return QApplication::exec();
}
