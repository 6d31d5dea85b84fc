#include "operation_card.h"

#include "screen_analysis.h"

namespace e2e {

namespace {

// The icon alone (24 x 24, tinted) gives well over this many pixels.
constexpr int kCardShownMargin = 40;

QColor colourOf(CardLook look)
{
    switch (look) {
    case CardLook::Loading:
        return QColor("#60a5fa"); // the black theme's loading blue
    case CardLook::Success:
        return QColor("#4ade80");
    case CardLook::Failure:
        return QColor("#f87171");
    case CardLook::Warning:
        return QColor("#fbbf24");
    }
    return {};
}

constexpr CardLook kAllLooks[] = {CardLook::Loading, CardLook::Success, CardLook::Failure,
                                  CardLook::Warning};

} // namespace

const char* toString(CardLook look)
{
    switch (look) {
    case CardLook::Loading:
        return "loading";
    case CardLook::Success:
        return "success";
    case CardLook::Failure:
        return "failure";
    case CardLook::Warning:
        return "warning";
    }
    return "?";
}

int cardPixels(const QImage& image, CardLook look)
{
    return pixelsNear(image, area::kOperationCard, colourOf(look), 30);
}

bool waitForCard(PanelRig& rig, CardLook look, const QImage& before,
                 std::chrono::milliseconds deadline)
{
    const int baseline = cardPixels(before, look);
    const QImage seen = rig.screen().waitFor(
        [&](const QImage& image) { return cardPixels(image, look) > baseline + kCardShownMargin; },
        deadline);
    return cardPixels(seen, look) > baseline + kCardShownMargin;
}

bool waitForCardGone(PanelRig& rig, const QImage& before, std::chrono::milliseconds deadline)
{
    const auto noCard = [&](const QImage& image) {
        for (CardLook look : kAllLooks)
            if (cardPixels(image, look) > cardPixels(before, look) + kCardShownMargin)
                return false;
        return true;
    };
    const QImage seen = rig.screen().waitFor(noCard, deadline);
    return !seen.isNull() && noCard(seen);
}

bool waitForLookGone(PanelRig& rig, CardLook look, const QImage& before,
                     std::chrono::milliseconds deadline)
{
    const int baseline = cardPixels(before, look);
    const auto gone = [&](const QImage& image) {
        return cardPixels(image, look) <= baseline + kCardShownMargin;
    };
    const QImage seen = rig.screen().waitFor(gone, deadline);
    return !seen.isNull() && gone(seen);
}

} // namespace e2e
