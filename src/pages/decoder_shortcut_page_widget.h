#pragma once

#include "model/view_models/shortcut_view_models.h"
#include "pages/shortcut_list_page.h"

#include <QList>

class QLabel;

// What tells the three decoder source pages apart, besides their signal.
struct DecoderShortcutPageConfig {
    DecoderSource source;
    const char* titleKey;
    const char* emptyKey;
    int swipeLeftPage;  // when the list is at its end
    int swipeRightPage; // when the list is at its start
};

// A list of decoding sources; a tap starts or stops one.
class DecoderShortcutPageBase : public ShortcutListPage {
    Q_OBJECT

public:
    int onSwipeLeft(int workmode) override;
    int onSwipeRight(int workmode) override;
    int onEdgeSwipeToCenter(int workmode) override;
    int onSwipeUp(int workmode) override;
    int onSwipeDown(int workmode) override;

    void onLanguageChanged();
    void updateList(const QList<DecoderShortcutItemInfo>& list);

protected:
    DecoderShortcutPageBase(const DecoderShortcutPageConfig& config, UITextManager* textManager,
                            QWidget* parent);
    void applyList(const QList<DecoderShortcutItemInfo>& list);

private:
    QString text(const char* key) const;

    DecoderShortcutPageConfig config;
    QLabel* title_label = nullptr;
    QList<DecoderShortcutItemInfo> last_list;
};

// Network streams pulled by the decoder.
class DecoderShortcutPage1Widget : public DecoderShortcutPageBase {
    Q_OBJECT

public:
    DecoderShortcutPage1Widget(UITextManager* textManager, QWidget* parent = nullptr);

signals:
    void pullItemClicked(int id, bool isEnabled);

public slots:
    void updateFromVm(const DecoderShortcutPageVM& vm) { applyList(vm.net_items); }

protected:
    void onRowClicked(int key, bool on) override { emit pullItemClicked(key, on); }
};

// USB cameras.
class DecoderShortcutPage2Widget : public DecoderShortcutPageBase {
    Q_OBJECT

public:
    DecoderShortcutPage2Widget(UITextManager* textManager, QWidget* parent = nullptr);

signals:
    void uvcItemClicked(int id, bool isEnabled);

public slots:
    void updateFromVm(const DecoderShortcutPageVM& vm) { applyList(vm.uvc_items); }

protected:
    void onRowClicked(int key, bool on) override { emit uvcItemClicked(key, on); }
};

// NDI sources found on the network.
class DecoderShortcutPage3Widget : public DecoderShortcutPageBase {
    Q_OBJECT

public:
    DecoderShortcutPage3Widget(UITextManager* textManager, QWidget* parent = nullptr);

signals:
    void ndiItemClicked(int id, bool isEnabled);

public slots:
    void updateFromVm(const DecoderShortcutPageVM& vm) { applyList(vm.ndi_items); }

protected:
    void onRowClicked(int key, bool on) override { emit ndiItemClicked(key, on); }
};
