#include "core/RecordModel.h"
#include "platform/UserDefaults.h"
#include "window/desktop/DesktopText.h"
#include "window/list/CategoryView.h"
#include "window/list/VLLabelDrawer.h"
#include "window/list/VLLabelDrawerExt.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>

using namespace Foundation;

namespace
{

using Draw = void (*)(QPainter &, const QString &, const TextAttributes &, qint32, qint32, const Color &,
                      const Color &);

const Color red{1, 0, 0};
const Color white{1, 1, 1};

QImage drawing(Draw draw, const QString &name, qint32 width, qint32 height, double scale)
{
    QImage image(int(width * scale), int(height * scale), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    draw(painter, name, {QString(), 12, white}, width, height, red, {0, 0, 1});
    return image;
}

// The columns of one line in which the label's colour is full, in points: the first, and the one behind the
// last.
std::pair<double, double> extent(const QImage &image, double y)
{
    const double scale = image.devicePixelRatio();
    int first = -1;
    int last = -1;
    for (int x = 0; x < image.width(); ++x) {
        if (image.pixel(x, int(y * scale)) == qRgb(255, 0, 0)) {
            first = first < 0 ? x : first;
            last = x;
        }
    }
    return {first / scale, (last + 1) / scale};
}

class PillTest : public testing::Test
{
protected:
    PillTest() { Services::shared().setTextMeasurer(&measurer); }
    ~PillTest() override
    {
        Services::shared().setTextMeasurer(nullptr);
        UserDefaults::standardUserDefaults().setValue(u"tableFontSize"_qs, {});
    }

    DesktopTextMeasurer measurer;
};

} // namespace

TEST_F(PillTest, ShapesKeepTheirMeasuresAtAnyScale)
{
    const struct
    {
        const char *shape;
        Draw draw;
        double middleFirst, middleEnd, topFirst, topEnd; // just below the upper edge
    } cases[] = {
        // Half circles of radius 10: a point below the upper edge they are some 5 points in.
        {"rounded rectangle", VLLabelDrawerExt::drawString, 1, 58, 6, 53},
        {"bar between discs", VLLabelDrawer::drawString, 1, 58, 6, 53},
        {"arrow to the left", VLLabelDrawerExt::drawLeftArrowString, 1, 51, 7, 57},
        {"arrow to the right", VLLabelDrawerExt::drawRightArrowString, 7, 57, 1, 51},
    };
    for (const auto &c : cases) {
        for (const int scale : {1, 2, 3}) {
            SCOPED_TRACE(std::string(c.shape) + " x" + std::to_string(scale));
            const QImage image = drawing(c.draw, QString(), 60, 20, scale);
            const auto [middleFirst, middleEnd] = extent(image, 10);
            EXPECT_NEAR(middleFirst, c.middleFirst, 1.01);
            EXPECT_NEAR(middleEnd, c.middleEnd, 1.01);
            const auto [topFirst, topEnd] = extent(image, 1);
            EXPECT_NEAR(topFirst, c.topFirst, 2.01);
            EXPECT_NEAR(topEnd, c.topEnd, 2.01);
        }
    }
}

TEST_F(PillTest, TextStaysInItsRoomAndEndsInDots)
{
    for (const Draw draw : {&VLLabelDrawerExt::drawString, &VLLabelDrawer::drawString}) {
        const QImage filled = drawing(draw, u"WWWWWWWWWWWWWWWWWWWWWWWW"_qs, 80, 20, 2);
        const QRectF room = VLLabelDrawerExt::textRoom(80, 20);
        EXPECT_EQ(room, QRectF(7, 0, 66, 20));
        bool hasText = false;
        for (int y = 0; y < filled.height(); ++y) {
            for (int x = 0; x < filled.width(); ++x) {
                const bool isText = qGreen(filled.pixel(x, y)) > 128;
                hasText |= isText;
                ASSERT_FALSE(isText && (x < 2 * room.left() - 1 || x > 2 * room.right() + 1))
                    << x << " " << y;
            }
        }
        EXPECT_TRUE(hasText);
    }
    // A whole name needs no more than the room it asks for.
    const TextAttributes attributes{QString(), 13, white};
    const QString name = u"Family & friends"_qs;
    const qint32 width = VLLabelDrawer::widthForString(name, attributes, 20);
    EXPECT_LE(measurer.widthOfText(name, attributes), VLLabelDrawerExt::textRoom(width, 20).width());
}

TEST_F(PillTest, CapitalsStandInTheMiddle)
{
    for (const Draw draw : {&VLLabelDrawerExt::drawString, &VLLabelDrawer::drawString}) {
        for (const qint32 height : {20, 22}) {
            for (const double scale : {1.0, 1.5, 2.0}) {
                const QImage image = drawing(draw, u"HHHH"_qs, 80, height, scale);
                int above = 0;
                int below = 0;
                const auto hasText = [&image](int y) {
                    for (int x = 0; x < image.width(); ++x) {
                        if (qGreen(image.pixel(x, y)) > 128)
                            return true;
                    }
                    return false;
                };
                while (above < image.height() && !hasText(above))
                    ++above;
                while (below < image.height() && !hasText(image.height() - 1 - below))
                    ++below;
                EXPECT_NEAR(above, below, 1) << height << " at " << scale;
            }
        }
    }
}

TEST_F(PillTest, TheSettingOfTheFontReachesTheTablesAlone)
{
    const auto record = newContactRecord(newCategoryRecord(u"Work"_qs, 1), 0);
    const auto content = Array::create();
    content->values.push_back(record);
    ArrayController records;
    records.setContent(content);
    CategoryView view;
    view.setMyArrayController(&records);
    view.resize(view.sizeHint());
    const auto cell = [&record] {
        QImage image(100, 22, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        CategoryPill::ofRecord(*record)->paintIntoCell(painter, QRectF(0, 0, 100, 22), Qt::white);
        return image;
    };
    UserDefaults &defaults = UserDefaults::standardUserDefaults();
    defaults.setValue(u"tableFontSize"_qs, 9.0);
    const QImage smallCell = cell();
    const QImage before = view.grab().toImage();
    defaults.setValue(u"tableFontSize"_qs, 14.0);
    EXPECT_NE(cell(), smallCell);
    EXPECT_EQ(view.grab().toImage(), before);
    // A family that is not there changes nothing but the drawing, and a cell without room draws nothing.
    const TextAttributes missing{u"No Such Family"_qs, 12, white};
    EXPECT_EQ(fontOfAttributes(missing).family(), QGuiApplication::font().family());
    QImage empty(10, 10, QImage::Format_ARGB32_Premultiplied);
    empty.fill(Qt::transparent);
    QPainter painter(&empty);
    CategoryPill::ofRecord(*record)->paintIntoCell(painter, QRectF(0, 0, 2.9, 10), Qt::white);
    painter.end();
    EXPECT_EQ(empty.pixel(1, 5), 0U);
}

TEST_F(PillTest, OnlyACategoryOfTheRecordsOwnIsCopied)
{
    const auto content = Array::create();
    content->values.push_back(newContactRecord(newCategoryRecord(u"Work"_qs, 1), 0));
    content->values.push_back(newContactRecord(newCategoryRecord(u"Work"_qs, 1), 0));
    content->values[1].dictionary()->setValue(RecordKey::category, u"Old friends"_qs);
    ArrayController records;
    records.setContent(content);
    CategoryView view;
    view.setMyArrayController(&records);
    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->setText(u"kept"_qs);
    records.setSelectionIndex(0);
    view.CopyInClipboard({});
    EXPECT_EQ(clipboard->text(), u"kept"_qs);
    records.setSelectionIndex(1);
    view.CopyInClipboard({});
    EXPECT_EQ(clipboard->text(), u"Old friends"_qs);
    view.refresh();
    EXPECT_EQ(view.accessibleName(), u"Category Work"_qs);
}
