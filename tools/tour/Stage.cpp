#include "Stage.h"

#include <QScreen>
#include <QTextStream>

namespace
{

constexpr int TimeToSettle = 250; // in milliseconds, for repainting

void print(const QString &line)
{
    QTextStream(stdout) << line << Qt::endl;
}

} // namespace

void Stage::step(const QString &heading)
{
    print(heading);
}

bool Stage::expect(bool holds, const QString &what) const
{
    if (!holds) {
        ++m_failures;
        print(u"  FAILED: %1"_qs.arg(what));
    }
    return holds;
}

bool Stage::await(const QString &what, const std::function<bool()> &condition) const
{
    return expect(QTest::qWaitFor(condition, m_failures == 0 ? Patience : 0), what);
}

void Stage::takePicture(const QString &name)
{
    QTest::qWait(TimeToSettle);
    const QString file = u"%1-%2.png"_qs.arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(name);
    const QPixmap screen = QGuiApplication::primaryScreen()->grabWindow(0);
    expect(screen.save(m_folder.filePath(file)), u"picture %1 is written"_qs.arg(file));
    print(u"  %1"_qs.arg(file));
}

void Stage::answerAlert(const QString &message, const QString &button, const QString &picture)
{
    if (!expect(nextAlert().contains(message), u"the alert “%1” comes"_qs.arg(message)))
        return;
    awaitActiveWindow();
    takePicture(picture);
    const QPointer<QDialog> alert = sheet();
    answer(button);
    await(u"the alert goes by its button “%1”"_qs.arg(button),
          [&alert] { return !alert || !alert->isVisible(); });
}

void Stage::awaitActiveWindow() const
{
    await(u"the window in front is the active one"_qs,
          [this] { return front() && front()->isActiveWindow(); });
}
