#pragma once

#include "model/view_models/shortcut_view_models.h"
#include "pages/basic_page.h"

#include <QVector>

#include <nlohmann/json.hpp>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QSlider;

// The quick action list opened by a long press on a home page. Its rows come
// from a JSON list of function names; a tap reports the row's name and the
// window carries the action out. Below the list, dots show which rows are in
// view once there are more than fit.
class ShortcutPageWidget : public BasicPage {
    Q_OBJECT

public:
    static constexpr int kMaxRows = 12;

    ShortcutPageWidget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int workmode) override;
    int onSwipeRight(int workmode) override;
    int onEdgeSwipeToCenter(int workmode) override;
    int onSwipeUp(int workmode) override;
    int onSwipeDown(int workmode) override;

    void onLanguageChanged();
    void updateShortcutList(const nlohmann::json& list);
    void setShortcut_num(int rowsInView) { shortcut_num = rowsInView; }

    bool canScrollLeft() const;
    bool canScrollRight() const;
    bool scrollListLeft();
    bool scrollListRight();

    int rowCount() const { return row_buttons.size(); }
    QPushButton* rowButton(int index) const { return row_buttons.value(index); }
    QLabel* rowLabel(int index) const { return row_labels.value(index); }
    const QVector<QLabel*>& dots() const { return dot_labels; }
    QWidget* dotStrip() const { return dot_strip; }
    QScrollArea* scrollArea() const { return scroll_area; }
    QWidget* contentWidget() const { return content; }

signals:
    void shortcutKeyClicked(const QString& function);

public slots:
    void updateFromVm(const ShortcutVM& vm);
    void onReturnPage(int page) { return_page = page; }

private:
    void createComponents();
    void clearRows();
    void addRow(int index, const QString& function);
    void updateDots();
    int homeOrReturnPage() const;

    int return_page = 0;
    int current_index = 0;
    int shortcut_num = 3;
    nlohmann::json last_list;

    QScrollArea* scroll_area = nullptr;
    QWidget* content = nullptr;
    QWidget* dot_strip = nullptr;
    QHBoxLayout* dot_layout = nullptr;
    QSlider* unused_slider = nullptr;
    QVector<QPushButton*> row_buttons;
    QVector<QLabel*> row_labels;
    QVector<QString> row_functions;
    QVector<QLabel*> dot_labels;
};
