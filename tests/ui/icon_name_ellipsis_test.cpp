// buildEllipsisName: the per-place limits and the CJK and Latin rules.
#include "ui/text_ellipsis.h"

#include <gtest/gtest.h>

namespace {

// n copies of a CJK unit (U+4E2D) or a Latin letter.
QString cjk(int n)
{
    return QString(n, QChar(0x4E2D));
}
QString latin(int n)
{
    return QString(n, QLatin1Char('a'));
}

TEST(EllipsisName, EmptyStaysEmpty)
{
    for (int kind = -1; kind <= 6; ++kind)
        EXPECT_TRUE(buildEllipsisName(QString(), kind).isEmpty());
}

TEST(EllipsisName, LatinKeepsHeadAndFourLastUnits)
{
    EXPECT_EQ(buildEllipsisName("abcdefghij", 0), "abcd...ghij");
    EXPECT_EQ(buildEllipsisName("abcdefghi", 0), "abcdefghi") << "9 is not above 4 + 5";
    EXPECT_EQ(buildEllipsisName("Studio-Camera-West-01", 2), "Studio-Camera-...t-01");
}

TEST(EllipsisName, CjkKeepsHeadOnly)
{
    EXPECT_EQ(buildEllipsisName(cjk(6), 0), cjk(4) + "...");
    EXPECT_EQ(buildEllipsisName(cjk(5), 0), cjk(5));
}

TEST(EllipsisName, OneCjkUnitMakesTheWholeNameCjk)
{
    const QString mixed = QStringLiteral("camera") + QChar(0x4E2D); // 7 units
    EXPECT_EQ(buildEllipsisName(mixed, 0), "came...");
    EXPECT_EQ(buildEllipsisName(QStringLiteral("ab") + QChar(0x3400), 5),
              QStringLiteral("ab") + QChar(0x3400));
}

TEST(EllipsisName, CjkRangesAreInclusive)
{
    for (ushort code : {0x3400, 0x4DBF, 0x4E00, 0x9FFF, 0xF900, 0xFAFF})
        EXPECT_EQ(buildEllipsisName(latin(5) + QChar(code), 0), latin(4) + "...")
            << std::hex << code;
    // Just outside every range: counted as Latin, so 6 units stay whole.
    for (ushort code : {0x33FF, 0x4DC0, 0xA000, 0xF8FF, 0xFB00})
        EXPECT_EQ(buildEllipsisName(latin(5) + QChar(code), 0), latin(5) + QChar(code))
            << std::hex << code;
}

struct KindLimits {
    int kind;
    int cjkKeep;
    int latinKeep;
};

class EllipsisNameKinds : public ::testing::TestWithParam<KindLimits> {};

TEST_P(EllipsisNameKinds, CutsJustBeyondTheLimits)
{
    const KindLimits limits = GetParam();
    const QString longestWholeLatin = latin(limits.latinKeep + 5);
    EXPECT_EQ(buildEllipsisName(longestWholeLatin, limits.kind), longestWholeLatin);
    const QString cutLatin = latin(limits.latinKeep + 5) + "WXYZ!";
    EXPECT_EQ(buildEllipsisName(cutLatin, limits.kind), latin(limits.latinKeep) + "...XYZ!");

    EXPECT_EQ(buildEllipsisName(cjk(limits.cjkKeep + 1), limits.kind), cjk(limits.cjkKeep + 1));
    EXPECT_EQ(buildEllipsisName(cjk(limits.cjkKeep + 2), limits.kind), cjk(limits.cjkKeep) + "...");
}

INSTANTIATE_TEST_SUITE_P(AllPlaces, EllipsisNameKinds,
                         ::testing::Values(KindLimits{1, 15, 20}, KindLimits{2, 10, 14},
                                           KindLimits{4, 20, 23}, KindLimits{5, 4, 5},
                                           KindLimits{0, 4, 4}, KindLimits{7, 4, 4},
                                           KindLimits{-1, 4, 4}));

TEST(EllipsisName, SsidKeepsNoCjkUnits)
{
    EXPECT_EQ(buildEllipsisName(cjk(1), 3), cjk(1));
    EXPECT_EQ(buildEllipsisName(cjk(2), 3), "...");
    EXPECT_EQ(buildEllipsisName(latin(19), 3), latin(19));
    EXPECT_EQ(buildEllipsisName(latin(16) + "1234", 3), latin(14) + "...1234");
}

} // namespace
