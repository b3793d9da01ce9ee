#include "sticky/NoteFrame.h"
#include "sticky/note_paper.h"

#include <gtest/gtest.h>

using namespace norvane;

TEST(NoteFrame, DragKeepsTheFarEdgeAndTheLeastSize)
{
    const QRect start(50, 60, 300, 200);
    EXPECT_EQ(draggedNote(start, NoteGrip::Move, {-80, 5}), QRect(-30, 65, 300, 200));
    EXPECT_EQ(draggedNote(start, NoteGrip::TopLeft, {10, 20}), QRect(60, 80, 290, 180));
    EXPECT_EQ(draggedNote(start, NoteGrip::BottomRight, {10, 20}), QRect(50, 60, 310, 220));
    const QRect narrow = draggedNote(start, NoteGrip::Left, {900, 0});
    EXPECT_EQ(narrow.right(), start.right());
    EXPECT_EQ(narrow.width(), kNoteLeast.width());
    const QRect flat = draggedNote(start, NoteGrip::Bottom, {0, -900});
    EXPECT_EQ(flat.top(), start.top());
    EXPECT_EQ(flat.height(), kNoteLeast.height());
    // A stored note may be smaller than that; taking hold of it does not make it jump.
    EXPECT_EQ(draggedNote({0, 0, 60, 20}, NoteGrip::Right, {-5, 0}), QRect(0, 0, 60, 20));
}

TEST(NotePaper, InkIsReadableOnLightAndDarkPaper)
{
    const auto brightness = [](const QColor &color) {
        return 0.299 * color.red() + 0.587 * color.green() + 0.114 * color.blue();
    };
    for (const quint32 color :
         {0xC0FFFFu, 0xFFFFFFu, 0x000000u, 0x303030u, 0xFF0000u, 0x00FF00u, 0x0000FFu}) {
        const NotePaper paper = notePaper(color);
        EXPECT_GT(std::abs(brightness(paper.ink) - brightness(paper.activeStrip)), 85) << std::hex << color;
    }
    EXPECT_EQ(notePaper(0xC0FFFF).paper, QColor(0xff, 0xff, 0xc0));
}
