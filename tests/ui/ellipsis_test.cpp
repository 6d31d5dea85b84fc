// buildEllipsisName: the limits of each place a name is shown, and the rules
// for CJK and Latin names.
#include "ui/text_ellipsis.h"

#include <gtest/gtest.h>

namespace {

// n copies of a CJK unit (U+4E2D) or of a Latin letter.
QString cjk(int n)
{
    return QString(n, QChar(0x4E2D));
}
QString latin(int n)
{
    return QString(n, QLatin1Char('a'));
}

TEST(EllipsisName, EachPlaceCutsJustBeyondItsLimits)
{
    struct Limits {
        int kind;
        int cjkKeep;
        int latinKeep;
    };
    // Unknown places take the limits of place 0.
    for (const Limits l : {Limits{0, 4, 4}, Limits{1, 15, 20}, Limits{2, 10, 14}, Limits{4, 20, 23},
                           Limits{5, 4, 5}, Limits{-1, 4, 4}}) {
        SCOPED_TRACE(l.kind);
        EXPECT_TRUE(buildEllipsisName(QString(), l.kind).isEmpty());
        // Latin keeps its head and its last four units.
        EXPECT_EQ(buildEllipsisName(latin(l.latinKeep + 5), l.kind), latin(l.latinKeep + 5));
        EXPECT_EQ(buildEllipsisName(latin(l.latinKeep + 5) + "WXYZ!", l.kind),
                  latin(l.latinKeep) + "...XYZ!");
        // CJK keeps its head only.
        EXPECT_EQ(buildEllipsisName(cjk(l.cjkKeep + 1), l.kind), cjk(l.cjkKeep + 1));
        EXPECT_EQ(buildEllipsisName(cjk(l.cjkKeep + 2), l.kind), cjk(l.cjkKeep) + "...");
    }
}

TEST(EllipsisName, SsidsKeepNoCjkUnits)
{
    EXPECT_EQ(buildEllipsisName(cjk(1), 3), cjk(1));
    EXPECT_EQ(buildEllipsisName(cjk(2), 3), "...");
    EXPECT_EQ(buildEllipsisName(latin(19), 3), latin(19));
    EXPECT_EQ(buildEllipsisName(latin(16) + "1234", 3), latin(14) + "...1234");
}

TEST(EllipsisName, OneUnitInACjkRangeMakesTheWholeNameCjk)
{
    EXPECT_EQ(buildEllipsisName(QStringLiteral("camera") + QChar(0x4E2D), 0), "came...");
    // The ranges are inclusive; just outside each one a unit counts as Latin.
    for (ushort code : {0x3400, 0x4DBF, 0x4E00, 0x9FFF, 0xF900, 0xFAFF})
        EXPECT_EQ(buildEllipsisName(latin(5) + QChar(code), 0), latin(4) + "...") << code;
    for (ushort code : {0x33FF, 0x4DC0, 0xA000, 0xF8FF, 0xFB00})
        EXPECT_EQ(buildEllipsisName(latin(5) + QChar(code), 0), latin(5) + QChar(code)) << code;
}

} // namespace
