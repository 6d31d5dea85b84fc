// A language change reaches a page through its dirty mark: the shell marks
// every page, and each renews its fixed texts at its own next update, so that
// pages nobody looks at do no work. Until then the old language stays.
#include "page_test_support.h"

#include "model/view_models/shortcut_view_models.h"
#include "model/view_models/status_view_models.h"
#include "pages/encoder_shortcut_page_widget.h"
#include "pages/shortcut_page_widget.h"
#include "pages/status_page2_widget.h"
#include "pages/status_page3_widget.h"

#include <gtest/gtest.h>

#include <functional>

using namespace pagetest;

namespace {

struct LanguageCase {
    std::function<void()> update;
    std::function<QString()> shown;
    const char* key;
};

// Switches `texts` from English to French between two updates and checks the
// text of `key` follows only once the page has been marked dirty.
void expectRenewedAtTheNextDirtyUpdate(UITextManager& texts, IGestureHandler& page,
                                       const LanguageCase& c)
{
    c.update();
    const QString english = texts.getText(QString::fromLatin1(c.key));
    EXPECT_EQ(c.shown(), english) << c.key;

    texts.switchLanguage(kFrench);
    const QString french = texts.getText(QString::fromLatin1(c.key));
    ASSERT_NE(french, english) << c.key << " must differ between the languages";
    c.update();
    EXPECT_EQ(c.shown(), english) << c.key << ": renewed without a dirty mark";

    page.setDirty(true);
    c.update();
    EXPECT_EQ(c.shown(), french) << c.key;
}

} // namespace

TEST(PageLanguageChange, StatusPagesRenewTheirLabelsAtTheNextDirtyUpdate)
{
    auto loopTexts = makeTextManager(kEnglish);
    StatusPage2Widget video(loopTexts.get(), nullptr);
    StatusPage2VM encoder;
    encoder.loop_out_on = true;
    expectRenewedAtTheNextDirtyUpdate(*loopTexts, video,
                                      {[&] { video.updateFromVm(encoder); },
                                       [&] {
                                           // The loop label: the first status label shown in the
                                           // encoder layout.
                                           for (QLabel* label :
                                                byClass<QLabel>(&video, "v2-p2-status-label"))
                                               if (!label->isHidden())
                                                   return label->text();
                                           return QString();
                                       },
                                       "statusp2.label.loopout"});

    auto audioTexts = makeTextManager(kEnglish);
    StatusPage3Widget audio(audioTexts.get(), nullptr);
    expectRenewedAtTheNextDirtyUpdate(
        *audioTexts, audio,
        {[&] { audio.updateFromVm(StatusPage3VM()); },
         [&] { return oneByClass<QLabel>(&audio, "v2-p3-audio-label")->text(); },
         "statusp3.label.audio"});
}

TEST(PageLanguageChange, ShortcutPagesRenewTheirFixedTextsAtTheNextDirtyUpdate)
{
    auto recordTexts = makeTextManager(kEnglish);
    EncoderShortcutPage1Widget record(recordTexts.get());
    expectRenewedAtTheNextDirtyUpdate(
        *recordTexts, record,
        {[&] { record.updateFromVm(EncoderShortcutPageVM()); },
         [&] { return record.buttonLabel(EncoderShortcutPage1Widget::kDisk)->text(); },
         "encoder_shortcut.disk"});

    // The quick list keeps its rows while the list is unchanged; only the
    // dirty mark renews their words.
    auto quickTexts = makeTextManager(kEnglish);
    ShortcutPageWidget quick(quickTexts.get());
    ShortcutVM vm;
    vm.config = nlohmann::json::parse(R"({"list":[{"function":"Standby"}]})");
    expectRenewedAtTheNextDirtyUpdate(*quickTexts, quick,
                                      {[&] { quick.updateFromVm(vm); },
                                       [&] { return quick.rowLabel(0)->text(); },
                                       "system_settings.standby"});
}
