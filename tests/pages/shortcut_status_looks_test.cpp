// Status lines of the shortcut list rows: which text and which colour state
// each backend number gets.
#include "page_test_support.h"
#include "pages/shortcut_status_looks.h"

#include <gtest/gtest.h>

namespace {

class StatusLookTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager(pagetest::kEnglish);
    QString text(const QString& key) const { return texts->getTextWithFallback(key); }
};

TEST_F(StatusLookTest, OsdStatus)
{
    EXPECT_EQ(osdStatusLook(texts.get(), 1).state, "mounted");
    EXPECT_EQ(osdStatusLook(texts.get(), 1).text, text("osd_status.osd_status_1"));
    for (int status : {0, 2, 3, 4}) {
        const ShortcutStatusLook look = osdStatusLook(texts.get(), status);
        EXPECT_EQ(look.state, "error") << status;
        EXPECT_EQ(look.text, text(QStringLiteral("osd_status.osd_status_%1").arg(status)));
    }
    // An unknown number reads "off" but in grey, unlike a real 0.
    for (int status : {5, -1, 42}) {
        const ShortcutStatusLook look = osdStatusLook(texts.get(), status);
        EXPECT_EQ(look.state, "normal") << status;
        EXPECT_EQ(look.text, text("osd_status.osd_status_0"));
    }
}

TEST_F(StatusLookTest, PushStreamStatus)
{
    EXPECT_EQ(pushStreamStatusLook(texts.get(), 1).state, "mounted");
    for (int status : {2, 3, 4, 6, 7, 8, 11})
        EXPECT_EQ(pushStreamStatusLook(texts.get(), status).state, "error") << status;
    for (int status : {5, 9, 10, 12})
        EXPECT_EQ(pushStreamStatusLook(texts.get(), status).state, "warning") << status;
    for (int status = 1; status <= 12; ++status) {
        EXPECT_EQ(pushStreamStatusLook(texts.get(), status).text,
                  text(QStringLiteral("push_status.push_stream_%1").arg(status)));
    }
    for (int status : {0, 13, -2}) {
        const ShortcutStatusLook look = pushStreamStatusLook(texts.get(), status);
        EXPECT_EQ(look.text, "-") << status;
        EXPECT_EQ(look.state, "normal");
    }
}

TEST_F(StatusLookTest, DecoderStatusSharedNumbers)
{
    for (DecoderSource source : {DecoderSource::Pull, DecoderSource::Uvc, DecoderSource::Ndi}) {
        for (int status : {1, 3, 5, 8, 9, 10})
            EXPECT_EQ(decoderStatusLook(texts.get(), source, status).state, "mounted") << status;
        for (int status : {2, 4, 6})
            EXPECT_EQ(decoderStatusLook(texts.get(), source, status).state, "warning") << status;
        for (int status : {11, 12})
            EXPECT_EQ(decoderStatusLook(texts.get(), source, status).state, "error") << status;
        for (int status : {7, 13})
            EXPECT_EQ(decoderStatusLook(texts.get(), source, status).state, "normal") << status;
        for (int status = 1; status <= 12; ++status) {
            EXPECT_EQ(decoderStatusLook(texts.get(), source, status).text,
                      text(QStringLiteral("pull_status.status_%1").arg(status)));
        }
    }
}

TEST_F(StatusLookTest, DecoderStatusZeroDependsOnTheSource)
{
    const ShortcutStatusLook pull = decoderStatusLook(texts.get(), DecoderSource::Pull, 0);
    EXPECT_EQ(pull.text, text("pull_status.status_undefined"));
    EXPECT_EQ(pull.state, "error");
    const ShortcutStatusLook uvc = decoderStatusLook(texts.get(), DecoderSource::Uvc, 0);
    EXPECT_EQ(uvc.text, text("pull_status.status_0"));
    EXPECT_EQ(uvc.state, "error");
    const ShortcutStatusLook ndi = decoderStatusLook(texts.get(), DecoderSource::Ndi, 0);
    EXPECT_EQ(ndi.text, text("pull_status.status_on"));
    EXPECT_EQ(ndi.state, "mounted");
}

TEST_F(StatusLookTest, EveryStatusNumberHasAText)
{
    // A missing key would come back as the key itself.
    for (int status = 0; status <= 4; ++status)
        EXPECT_FALSE(osdStatusLook(texts.get(), status).text.startsWith("osd_status."));
    for (int status = 1; status <= 12; ++status) {
        EXPECT_FALSE(pushStreamStatusLook(texts.get(), status).text.startsWith("push_status."));
        EXPECT_FALSE(decoderStatusLook(texts.get(), DecoderSource::Uvc, status)
                         .text.startsWith("pull_status."));
    }
}

} // namespace
