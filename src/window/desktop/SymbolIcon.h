#pragma once

#include <QIcon>
#include <QWidget>

// A symbol of resources/icons in the colour of the surrounding text. The SVG files use "currentColor", which
// is replaced by the text colour of the palette when the icon is painted, so that one file serves light, dark
// and disabled states. A null icon if there is no file with that name.
QIcon symbolIcon(const QString &name);

// A widget that shows a symbol in the colour of the text.
class SymbolView : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString symbol READ symbol WRITE setSymbol)

public:
    using QWidget::QWidget;

    const QString &symbol() const { return m_symbol; }
    void setSymbol(const QString &name);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbol;
    QIcon m_icon;
};
