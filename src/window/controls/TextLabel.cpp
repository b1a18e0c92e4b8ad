#include "window/controls/TextLabel.h"

#include "window/controls/ActionDispatcher.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace
{
constexpr int NarrowestLabel = 24;
constexpr int RoomForHeadingLine = 6;
constexpr qreal HeadingFontScale = 0.85;
constexpr qreal HeadingLetterSpacing = 106; // in percent

QColor blend(const QColor &over, const QColor &under, qreal share)
{
    const auto mix = [share](float a, float b) { return float(share * a + (1 - share) * b); };
    return QColor::fromRgbF(mix(over.redF(), under.redF()), mix(over.greenF(), under.greenF()),
                            mix(over.blueF(), under.blueF()));
}
} // namespace

QColor quietTextColor(const QPalette &palette)
{
    // The contrast is 4.5 : 1 on white and on usual dark backgrounds, the minimum for small text (WCAG 2,
    // 1.4.3).
    constexpr qreal ShareOfText = 0.66;
    return blend(palette.color(QPalette::WindowText), palette.color(QPalette::Window), ShareOfText);
}

QColor linkColor(const QPalette &palette)
{
    // The link colour of the desktop is often the pure blue of old browsers, which is unreadable on a dark
    // background.
    const bool isDark = palette.color(QPalette::Window).lightness() < 128;
    return isDark ? QColor(0x7a, 0xa5, 0xff) : QColor(0x1f, 0x5f, 0xd0);
}

TextLabel::TextLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void TextLabel::setLook(Look look)
{
    m_look = look;
    if (look == Look::Heading) {
        QFont smaller = font();
        smaller.setPointSizeF(QFontInfo(smaller).pointSizeF() * HeadingFontScale);
        smaller.setCapitalization(QFont::AllUppercase);
        smaller.setLetterSpacing(QFont::PercentageSpacing, HeadingLetterSpacing);
        setFont(smaller);
    }
    update();
}

QString TextLabel::shownText() const
{
    // In a label with a buddy, a visible "&" is doubled.
    const QString whole = buddy() ? titleWithoutMnemonic(text()) : text();
    return QString(whole).replace(u'\n', u' ');
}

int TextLabel::lineHeight() const
{
    return fontMetrics().height() + (m_look == Look::Heading ? RoomForHeadingLine : 0);
}

QSize TextLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(shownText()) + 2 * margin() + 1, lineHeight() + 2 * margin()};
}

QSize TextLabel::minimumSizeHint() const
{
    return {std::min(NarrowestLabel, sizeHint().width()), sizeHint().height()};
}

bool TextLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    // Escaped, because tool tips interpret mark-up.
    if (sizeHint().width() > width())
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), shownText().toHtmlEscaped(), this);
    return true;
}

void TextLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    draw(painter);
}

void TextLabel::draw(QPainter &painter) const
{
    painter.setFont(font());
    QRect room = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    if (m_look == Look::Heading) {
        painter.setPen(blend(palette().color(QPalette::WindowText), palette().color(QPalette::Window), 0.2));
        painter.drawLine(room.bottomLeft(), room.bottomRight());
        room.setBottom(room.bottom() - RoomForHeadingLine);
    }
    const bool isQuiet = m_look != Look::Plain || !isEnabled();
    painter.setPen(isQuiet ? quietTextColor(palette()) : palette().color(QPalette::WindowText));
    const QString text = shownText();
    const QString fitting = fontMetrics().horizontalAdvance(text) <= room.width()
                                ? text
                                : fontMetrics().elidedText(text, m_elideMode, room.width());
    painter.drawText(room, int(alignment()) | Qt::TextSingleLine, fitting);
}
