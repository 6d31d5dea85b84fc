#pragma once
// The operation card, the small card under the status bar that tells that an
// operation runs and then how it ended, recognised on a screenshot by the
// colour of its icon and text.
#include "panel_rig.h"

#include <QImage>

#include <chrono>

namespace e2e {

enum class CardLook { Loading, Success, Failure, Warning };

const char* toString(CardLook look);

// Pixels of the look's colour in the card's strip of `image`.
int cardPixels(const QImage& image, CardLook look);

// Waits for a fresh picture that shows the card in `look`: clearly more of
// its colour in the card's strip than `before` (the page without the card)
// had. The operation card stays for 1.5 s, far longer than the screenshot
// period.
bool waitForCard(PanelRig& rig, CardLook look, const QImage& before,
                 std::chrono::milliseconds deadline = std::chrono::milliseconds(8000));

// Waits until the card's strip has no more of any card colour than `before`;
// without a picture, until no card colour shows there beyond a few pixels.
bool waitForCardGone(PanelRig& rig, const QImage& before = QImage(),
                     std::chrono::milliseconds deadline = std::chrono::milliseconds(8000));

// Waits until the card's strip has no more of the colour of `look` than
// `before` had: the card in that look has gone. For pages whose own texts
// in the strip change with the operation (the slider's value), where
// waitForCardGone would take the new text for a card.
bool waitForLookGone(PanelRig& rig, CardLook look, const QImage& before,
                     std::chrono::milliseconds deadline = std::chrono::milliseconds(8000));

} // namespace e2e
