#pragma once

#include <QGradient>
#include <QWidget>

#include <optional>

// The ground of a window's parts: draws nothing and lets the window's background through. What a gradient
// would need is kept for one.
class VLGrayView : public QWidget
{
    Q_OBJECT

public:
    explicit VLGrayView(QWidget *parent = nullptr)
        : QWidget(parent)
    {
    }

    std::optional<QGradient> myGradient; // never set
    float angle = 90.0F;                 // in degrees
    bool isRadial = false;

protected:
    void paintEvent(QPaintEvent *) override {}
};
