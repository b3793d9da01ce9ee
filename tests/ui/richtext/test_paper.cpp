#include "Editing.h"
#include "richtext/paper_colors.h"

#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

/// Darkest and lightest grey of what is drawn of a text.
std::pair<int, int> greysOf(NV_RTFEdit &edit)
{
    const QImage image = edit.box()->viewport()->grab(QRect(0, 0, 120, 40)).toImage();
    int darkest = 255;
    int lightest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            darkest = qMin(darkest, qGray(image.pixel(x, y)));
            lightest = qMax(lightest, qGray(image.pixel(x, y)));
        }
    }
    return {darkest, lightest};
}

class PaperTest : public testing::TestWithParam<quint32>
{
protected:
    void TearDown() override { QApplication::setPalette(QPalette()); }
};

} // namespace

TEST_P(PaperTest, InkIsReadableWhateverTheDesktop)
{
    for (const bool dark : {false, true}) {
        QPalette desktop;
        desktop.setColor(QPalette::Base, dark ? QColor(30, 30, 30) : QColor(Qt::white));
        desktop.setColor(QPalette::Text, dark ? QColor(240, 240, 240) : QColor(Qt::black));
        QApplication::setPalette(desktop);
        Editing editing;
        NV_RTFEdit edit(editing.services);
        edit.setToolBar(false);
        edit.resize(200, 80);
        edit.setBackColor(GetParam());
        // Text without a colour, and text that is black by name.
        for (const char *rtf : {"{\\rtf1\\fs40\\b Text\\par}",
                                "{\\rtf1{\\colortbl;\\red0\\green0\\blue0;}\\fs40\\b\\cf1 Text\\par}"}) {
            edit.setTextRTF(rtf);
            edit.show();
            const auto [darkest, lightest] = greysOf(edit);
            EXPECT_GT(lightest - darkest, 110) << dark << rtf;
        }
        EXPECT_EQ(edit.box()->viewport()->grab().toImage().pixelColor(190, 70).rgb(),
                  colorFromBlueGreenRed(GetParam()).rgb());
        EXPECT_TRUE(edit.TextRTF().contains("\\cf1")); // black by name is still written
    }
}

INSTANTIATE_TEST_SUITE_P(Papers, PaperTest, testing::Values(0xC0FFFFU, 0x000000U, 0x800000U, 0x808080U));

TEST(Paper, SystemWindowColourFollowsTheDesktop)
{
    Editing editing;
    NV_RTFEdit edit(editing.services);
    EXPECT_EQ(edit.BackColor(), kSystemWindowColor);
    edit.setBackColor(0x0000FF);
    EXPECT_EQ(edit.box()->palette().color(QPalette::Base), QColor(Qt::red));
    edit.setBackColor(kSystemWindowColor);
    EXPECT_EQ(edit.box()->palette().color(QPalette::Base), QApplication::palette().color(QPalette::Base));
    EXPECT_EQ(edit.box()->palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
}
