#pragma once

#include "model/view_models/shortcut_view_models.h"
#include "pages/basic_page.h"
#include "pages/shortcut_list_page.h"

#include <QMutex>

class QLabel;
class QPushButton;

// The disk button's drawing: the status bar's disk icon (storageIconPath),
// empty for a type that is no record disk.
QString buildDiskIconPath(int diskType, int level);

// Pause, record and disk choice of the encoder.
class EncoderShortcutPage1Widget : public BasicPage {
    Q_OBJECT

public:
    EncoderShortcutPage1Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int workmode) override;
    int onSwipeRight(int workmode) override;
    int onEdgeSwipeToCenter(int workmode) override;
    int onSwipeUp(int workmode) override;
    int onSwipeDown(int workmode) override;

    void onLanguageChanged();
    void updateRecordState();

    QPushButton* pauseButton() const { return buttons[kPause].button; }
    QPushButton* recordButton() const { return buttons[kRecord].button; }
    QPushButton* diskButton() const { return buttons[kDisk].button; }
    QLabel* buttonIcon(int which) const { return buttons[which].icon; }
    QLabel* buttonLabel(int which) const { return buttons[which].label; }

    enum ButtonSlot { kPause = 0, kRecord = 1, kDisk = 2 };

signals:
    void recordClicked();
    void pauseClicked();
    void diskSelectClicked();

public slots:
    void updateFromVm(const EncoderShortcutPageVM& vm);
    void onRecordBtnClicked();
    void onPauseBtnClicked();
    void onDiskSelectBtnClicked();

private:
    struct RoundButton {
        QPushButton* button = nullptr;
        QLabel* icon = nullptr;
        QLabel* label = nullptr;
    };
    struct ButtonLook {
        QString state;
        QString iconPath;
        QString iconState;
        QString textState;
        QString text;
        bool enabled = true;
    };

    void createComponents();
    void layoutComponents();
    void applyLook(const RoundButton& item, const ButtonLook& look);
    QString text(const char* key) const;

    RoundButton buttons[3];

    // Written by updateFromVm and read by updateRecordState.
    QMutex state_mutex;
    int record_status = 0;
    bool disk_speed_testing = false;
    int disk_type = -1;
    int disk_icon_level = 0;
};

// The OSD layouts, switched on and off by a tap.
class EncoderShortcutPage2Widget : public ShortcutListPage {
    Q_OBJECT

public:
    EncoderShortcutPage2Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int workmode) override;
    int onSwipeRight(int workmode) override;
    int onEdgeSwipeToCenter(int workmode) override;
    int onSwipeUp(int workmode) override;
    int onSwipeDown(int workmode) override;

    void onLanguageChanged() {}
    void updateOsdList(const QList<OsdItemInfo>& list);

signals:
    void osdItemClicked(int id, bool isEnabled);

public slots:
    void updateFromVm(const EncoderShortcutPageVM& vm);

protected:
    void onRowClicked(int key, bool on) override { emit osdItemClicked(key, on); }
};

// The push streams, switched on and off by a tap.
class EncoderShortcutPage3Widget : public ShortcutListPage {
    Q_OBJECT

public:
    EncoderShortcutPage3Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int workmode) override;
    int onSwipeRight(int workmode) override;
    int onEdgeSwipeToCenter(int workmode) override;
    int onSwipeUp(int workmode) override;
    int onSwipeDown(int workmode) override;

    void onLanguageChanged() {}
    void updatePushStreamList(const QList<PushStreamItemInfo>& list);

signals:
    void pushStreamItemClicked(int index, bool isEnabled);

public slots:
    void updateFromVm(const EncoderShortcutPageVM& vm);

protected:
    void onRowClicked(int key, bool on) override { emit pushStreamItemClicked(key, on); }
};
