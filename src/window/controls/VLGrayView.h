#pragma once

#include <QGradient>
#include <QWidget>

#include <optional>

// The background of parts of a window. It paints nothing, so the background of the window is visible. The
// members for a gradient are prescribed and unused.
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
