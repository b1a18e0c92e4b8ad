#include "Journey.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>
#include <QTimer>

namespace
{

QPalette darkPalette()
{
    QPalette palette;
    const QColor window(0x2d, 0x2f, 0x35);
    const QColor base(0x1b, 0x1d, 0x21);
    const QColor text(0xec, 0xee, 0xf2);
    const QColor accent(0x3f, 0x78, 0xd8);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::Button, QColor(0x3a, 0x3d, 0x44));
    palette.setColor(QPalette::ToolTipBase, window);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x85, 0x90));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(0x90, 0x95, 0xa0));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

// Runs the application once. The scene starts when the application is running, and must make it quit.
void act(Stage &stage, const QStringList &files, const std::function<void()> &scene)
{
    Application application;
    stage.setApplication(&application);
    application.start(files);
    QTimer::singleShot(0, [&] {
        scene();
        if (stage.failures() > 0)
            QApplication::exit(1);
        else
            QTimer::singleShot(Stage::Patience, &application, [] { QApplication::exit(1); });
    });
    stage.expect(QApplication::exec() == 0, QStringLiteral("the application quits"));
}

} // namespace

int main(int argc, char **argv)
{
    QApplication qtApplication(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Drives Vexarel through its main job and leaves a picture of each step."));
    parser.addHelpOption();
    const QCommandLineOption dark(QStringLiteral("dark"),
                                  QStringLiteral("Takes the tour in a dark palette."));
    parser.addOption(dark);
    parser.addPositionalArgument(QStringLiteral("folder"),
                                 QStringLiteral("For pictures and the saved document."));
    parser.process(qtApplication);
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(2);
    if (parser.isSet(dark))
        QApplication::setPalette(darkPalette());

    const QDir folder(QDir(parser.positionalArguments().first()).absolutePath());
    folder.mkpath(QStringLiteral("."));
    const QString file = folder.filePath(QStringLiteral("Friends.vexcards"));
    QFile::remove(file);
    Stage stage(folder);
    Journey journey(stage, file);
    act(stage, {}, [&journey] { journey.makeDocument(); });
    if (stage.failures() == 0)
        act(stage, {file}, [&journey] { journey.openDocument(); });
    QTextStream(stdout) << (stage.failures() == 0 ? "The tour is complete." : "The tour failed.") << Qt::endl;
    return stage.failures() == 0 ? 0 : 1;
}
