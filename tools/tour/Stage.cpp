#include "Stage.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>
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

bool Stage::expect(bool holds, const QString &what)
{
    if (!holds) {
        ++m_failures;
        print(QStringLiteral("  FAILED: %1").arg(what));
    }
    return holds;
}

bool Stage::await(const QString &what, const std::function<bool()> &condition)
{
    return expect(QTest::qWaitFor(condition, m_failures == 0 ? Patience : 0), what);
}

void Stage::takePicture(const QString &name)
{
    QTest::qWait(TimeToSettle);
    const QString file = QStringLiteral("%1-%2.png").arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(name);
    const QPixmap screen = QGuiApplication::primaryScreen()->grabWindow(0);
    expect(screen.save(m_folder.filePath(file)), QStringLiteral("picture %1 is written").arg(file));
    print(QStringLiteral("  %1").arg(file));
}

MyDocument *Stage::document() const
{
    const auto &documents = m_application->documentController().documents();
    return documents.isEmpty() ? nullptr : static_cast<MyDocument *>(documents.last());
}

DocumentWindowController *Stage::windowController() const
{
    return m_application->windowOf(document());
}

DocumentMainWindow *Stage::window() const
{
    return windowController() ? windowController()->mainWindow() : nullptr;
}

QDialog *Stage::sheet() const
{
    return qobject_cast<QDialog *>(QApplication::activeModalWidget());
}

QWindow *Stage::activeWindowHandle()
{
    const auto owner = [this] { return sheet() ? static_cast<QWidget *>(sheet()) : window(); };
    await(QStringLiteral("the window in front is the active one"),
          [&owner] { return owner() && owner()->isActiveWindow(); });
    return owner() ? owner()->windowHandle() : nullptr;
}

void Stage::answerAlert(const QString &message, const QString &button, const QString &picture)
{
    const auto isShown = [this, &message] {
        const auto *alert = qobject_cast<AlertDialog *>(sheet());
        if (!alert || !alert->isActiveWindow())
            return false;
        const auto labels = alert->findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(),
                           [&message](const QLabel *label) { return label->text() == message; });
    };
    if (!await(QStringLiteral("the alert “%1” comes").arg(message), isShown))
        return;
    takePicture(picture);
    const QPointer<QDialog> alert = sheet();
    for (QPushButton *candidate : alert->findChildren<QPushButton *>()) {
        if (alert && titleWithoutMnemonic(candidate->text()) == button) {
            click(candidate);
            break;
        }
    }
    await(QStringLiteral("the alert goes by its button “%1”").arg(button),
          [&alert] { return !alert || !alert->isVisible(); });
}

void Stage::press(int key, Qt::KeyboardModifiers modifiers)
{
    if (QWindow *handle = activeWindowHandle())
        QTest::keyClick(handle, Qt::Key(key), modifiers);
    QCoreApplication::processEvents();
}

void Stage::type(const QString &text)
{
    QWindow *handle = activeWindowHandle();
    for (const QChar letter : text) {
        if (handle && letter.unicode() < 0x80 && letter.isPrint()) {
            QTest::keyClick(handle, letter.toLatin1());
            continue;
        }
        if (!expect(QGuiApplication::focusObject(), QStringLiteral("something has the focus to type into")))
            return;
        QInputMethodEvent event;
        event.setCommitString(letter);
        QCoreApplication::sendEvent(QGuiApplication::focusObject(), &event);
    }
    QCoreApplication::processEvents();
}

void Stage::click(QWidget *control)
{
    if (!expect(control && control->isVisible() && control->isEnabled(),
                QStringLiteral("the control can be clicked")))
        return;
    QWidget *owner = control->window();
    QTest::mouseClick(owner->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      control->mapTo(owner, control->rect().center()));
    QCoreApplication::processEvents();
}
