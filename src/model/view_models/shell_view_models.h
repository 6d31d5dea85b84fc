#pragma once
// Records that the shell fills itself and hands to its modal pages, the
// operation overlay and the navigation dots.
#include <QMetaType>
#include <QString>

#include <tuple>

// The open edit flow: which option list, where to return, which entry is in
// force (-1 lets the page find it).
struct EditModePageVM {
    int editType = 0;
    int returnPage = 0;
    int actualIndex = 0;
    int reserved = 0;
    int workMode = 0;

    auto fields() const { return std::tie(editType, returnPage, actualIndex, reserved, workMode); }
    bool operator==(const EditModePageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const EditModePageVM& o) const { return !(*this == o); }
};

// The open slider flow; `value` is in backend units.
struct SliderModePageVM {
    int sliderType = 0;
    int returnPage = 0;
    int value = 0;

    auto fields() const { return std::tie(sliderType, returnPage, value); }
    bool operator==(const SliderModePageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const SliderModePageVM& o) const { return !(*this == o); }
};

struct ConfirmDialogPageVM {
    int actionType = 0;
    int returnPage = 0;
    int returnIndex = 0;
    int param = 0;

    auto fields() const { return std::tie(actionType, returnPage, returnIndex, param); }
    bool operator==(const ConfirmDialogPageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const ConfirmDialogPageVM& o) const { return !(*this == o); }
};

// What the operation card shows. The overlay is driven by direct calls; the
// record exists so that the card's content can travel in a queued signal.
struct OperationOverlayVM {
    QString text;
    QString icon_path;
    QString state_name;

    auto fields() const { return std::tie(text, icon_path, state_name); }
    bool operator==(const OperationOverlayVM& o) const { return fields() == o.fields(); }
    bool operator!=(const OperationOverlayVM& o) const { return !(*this == o); }
};

// The page dots under the content; the default is the hidden state.
struct NavDotsState {
    bool visible = false;
    int pageid = 0;
    int current = 0;
    int count = 1;

    auto fields() const { return std::tie(visible, pageid, current, count); }
    bool operator==(const NavDotsState& o) const { return fields() == o.fields(); }
    bool operator!=(const NavDotsState& o) const { return !(*this == o); }
};

// Which full-window layers cover the page stack.
struct UiLayerState {
    bool splash_visible = false;
    bool standby_visible = false;
    bool screensaver_active = false;
    bool upgrade_visible = false;
    bool modal_active = false;

    auto fields() const
    {
        return std::tie(splash_visible, standby_visible, screensaver_active, upgrade_visible,
                        modal_active);
    }
    bool operator==(const UiLayerState& o) const { return fields() == o.fields(); }
    bool operator!=(const UiLayerState& o) const { return !(*this == o); }
};

// What is on screen: the page, with the mode, look and language it is drawn in.
struct PresentationState {
    int pageid = 0;
    int modal_pageid = -1;
    int work_mode = 0;
    int theme_index = 0;
    int language_id = 0;

    auto fields() const
    {
        return std::tie(pageid, modal_pageid, work_mode, theme_index, language_id);
    }
    bool operator==(const PresentationState& o) const { return fields() == o.fields(); }
    bool operator!=(const PresentationState& o) const { return !(*this == o); }
};

Q_DECLARE_METATYPE(EditModePageVM)
Q_DECLARE_METATYPE(SliderModePageVM)
Q_DECLARE_METATYPE(ConfirmDialogPageVM)
Q_DECLARE_METATYPE(OperationOverlayVM)
Q_DECLARE_METATYPE(NavDotsState)
Q_DECLARE_METATYPE(UiLayerState)
Q_DECLARE_METATYPE(PresentationState)
