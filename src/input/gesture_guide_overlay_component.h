#pragma once

#include <QPair>
#include <QSet>
#include <QString>
#include <QVector>
#include <QWidget>

#include <nlohmann/json.hpp>

#include <functional>

class QTimer;

// Guide kinds. 2, 4 and 5 are not used; any other value has no items.
enum GestureGuideType : int {
    GESTURE_GUIDE_NONE = -1,
    GESTURE_GUIDE_HOME = 0,
    GESTURE_GUIDE_MAIN_MENU = 1,
    GESTURE_GUIDE_CONNECT_APP = 3,
    GESTURE_GUIDE_LCD_LOCKED = 6,
};

// One entry of a guide: (icon resource path, text key).
using GestureGuideItem = QPair<QString, QString>;
using GestureGuideItems = QVector<GestureGuideItem>;
// Text key to shown text; in the panel UITextManager::getTextWithFallback.
using GestureGuideTranslate = std::function<QString(const QString&)>;

// The guide of a page: home pages (status and shortcut), main menu pages and
// the connect page have one; every other page has GESTURE_GUIDE_NONE.
int getGestureGuideTypeForPage(int page);
// While the LCD is locked every page shows the unlock guide instead.
int getActiveGestureGuideTypeForPage(int page, bool lcdTouchLocked);

// Reads and writes the backend's guide record (Widget passes
// AppManager::getGestureGuide and AppManager::setGestureGuide). Both return a
// status value; an empty function counts as a failed call.
struct GestureGuideRecordAccess {
    std::function<int(nlohmann::json&)> read;
    std::function<int(const nlohmann::json&)> write;
};

// Decides whether a guide may come up, so that a practised user stops seeing
// it. The record is {"force_show": 0|1, "shown_counts": [n per type],
// "max_count": m}: each type appears at most once per run and at most
// `max_count` times in the device's life, unless `force_show` is 1, which shows
// each type once per run without counting.
class GestureGuideCounter {
public:
    explicit GestureGuideCounter(GestureGuideRecordAccess access = {});

    // True when the guide of `type` is to be shown now. `autoShow` false is a
    // request (the unlock hint after swipes on a locked LCD): it is granted for
    // any type with items and neither reads nor counts. Automatic offers never
    // show the unlock guide, stop once a type has been handled in this run,
    // and count in the backend. A record that can't be read or written leaves
    // the type unhandled, so that the next offer tries again.
    bool admit(int type, bool autoShow);

    // Types already handled in this run (Widget's `guides_seen`).
    const QSet<int>& guidesSeen() const { return guides_seen; }

private:
    bool admitCounted(int type);

    GestureGuideRecordAccess access;
    QSet<int> guides_seen;
};

// A full-strip card with one column per gesture: icon above, text below. It
// lets every touch through to the window; the shell dismisses it on the next
// touch (dismissByTouch) or when the auto-hide timer runs out.
class GestureGuideOverlayComponent : public QWidget {
    Q_OBJECT

public:
    static constexpr int kAutoHideMs = 6000;

    explicit GestureGuideOverlayComponent(QWidget* parent = nullptr);

    static GestureGuideItems guideItemsForType(int type);
    // Width of one item when `count` items share the card.
    static int itemWidthForCount(int count);

    // Shows `items` (hides when there are none) and starts the auto-hide
    // timer when `ms` is positive.
    void showGuide(const GestureGuideItems& items, const GestureGuideTranslate& translate, int ms);
    void hideGuide();
    // Replaces the item widgets of the previous guide.
    void rebuildItems(const GestureGuideItems& items, const GestureGuideTranslate& translate);
    // Hides a visible guide; true when it did, so that the caller swallows
    // the touch instead of acting on what lies beneath.
    bool dismissByTouch();

    QWidget* guideCard() const { return card; }
    const QVector<QWidget*>& itemWidgets() const { return item_widgets; }
    QTimer* autoHideTimer() const { return auto_hide_timer; }

signals:
    void autoHideTimeout();

private:
    QWidget* buildItem(const GestureGuideItem& item, const GestureGuideTranslate& translate,
                       int index, int width);

    QWidget* card = nullptr;
    QTimer* auto_hide_timer = nullptr;
    QVector<QWidget*> item_widgets;
};
