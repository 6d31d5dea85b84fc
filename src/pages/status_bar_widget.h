#pragma once

#include <QString>
#include <QWidget>

class QLabel;
class UITextManager;
struct StatusBarVM;

// The 640 by 30 strip above the pages. On the status pages it shows the work
// mode, network links, the record disk and what the device is doing; on other
// pages the place in the menu tree; on the record shortcut page the running
// record time and the free space. It only turns a StatusBarVM into labels.
class StatusBarWidget : public QWidget {
    Q_OBJECT

public:
    StatusBarWidget(UITextManager* textManager, QWidget* parent);

    // ":/icons/statusbar/<disk>_<fill>.svg"; empty for an unknown disk type.
    QString getStorageIconPath(int diskType, int level) const;
    // "h : mm : ss"; hours are not wrapped.
    QString formatDuration(int seconds) const;
    // Free megabytes in at most five figures: MB, GB with or without a
    // decimal, then TB.
    static QString diskCapacityText(qint64 freeMegabytes);

public slots:
    void updateFromVm(const StatusBarVM& vm);
    // Every text is set anew at each update, so there is nothing to redo here.
    void onLanguageChanged() {}

private:
    void createComponents();
    void applyPageContext(const StatusBarVM& vm);
    QString fittedContextText(const QString& text) const;
    // Glyphs may reach a pixel or two past their advance.
    static constexpr int kContextTextMargin = 4;
    void applyWorkMode(const StatusBarVM& vm);
    void applyOperationStatus(const StatusBarVM& vm);
    void applyHardwareStatus(const StatusBarVM& vm);
    void applyRecPageStatus(const StatusBarVM& vm);
    void applyDiskCapacityLabel(const StatusBarVM& vm);
    void layoutStatusIcons(const StatusBarVM& vm);
    void hideStatusPageIcons();
    QLabel* getCurrentRecordDiskLabel(int diskType) const;

    UITextManager* text_manager;
    QLabel* context_label = nullptr;
    QLabel* mode_dot = nullptr;
    QLabel* mode_label = nullptr;
    QLabel* rec_icon = nullptr;
    QLabel* rec_time_label = nullptr;
    QLabel* live_icon = nullptr;
    QLabel* dec_icon = nullptr;
    QLabel* lock_icon = nullptr;
    QLabel* udisk_icon = nullptr;
    QLabel* sdcard_icon = nullptr;
    QLabel* nas_icon = nullptr;
    QLabel* capacity_label = nullptr;
    QLabel* first_divider = nullptr;
    QLabel* second_divider = nullptr;
    QLabel* eth_icon = nullptr;
    QLabel* wifi_icon = nullptr;
    QLabel* ap_icon = nullptr;
};
