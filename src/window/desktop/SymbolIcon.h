#pragma once

#include <QIcon>
#include <QWidget>

// A symbol of resources/icons in the colour of the text around it: the drawings say "currentColor", and that
// becomes the palette's colour when the icon is painted, so that light, dark and disabled look right without
// drawings of their own. Null for a name that no drawing has.
QIcon symbolIcon(const QString &name);

// A symbol by itself, in the colour of the text.
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
