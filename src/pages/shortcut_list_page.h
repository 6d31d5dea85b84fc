#pragma once

#include "pages/basic_page.h"
#include "pages/shortcut_status_looks.h"

#include <QVector>

class QLabel;
class QPushButton;
class QScrollArea;

// The common body of the encoder and decoder shortcut pages: a horizontal
// list of at most twelve status rows that scrolls one row per swipe, or a
// hint when there is nothing to list. A swipe first scrolls the list and
// only leaves the page once the list can't move that way any more.
class ShortcutListPage : public BasicPage {
    Q_OBJECT

public:
    static constexpr int kMaxRows = 12;

    bool canScrollLeft() const;
    bool canScrollRight() const;
    bool scrollListLeft();
    bool scrollListRight();

    int rowCount() const { return rows.size(); }
    QPushButton* rowButton(int index) const { return rows.value(index); }
    QScrollArea* scrollArea() const { return scroll_area; }
    QWidget* contentWidget() const { return content; }
    QLabel* emptyHint() const { return empty_hint; }

protected:
    // One row to show: `key` and `on` travel back with a tap.
    struct Row {
        int key = 0;
        bool on = false;
        QString name;
        ShortcutStatusLook status;
        bool active = false;
    };

    ShortcutListPage(UITextManager* textManager, QWidget* parent);

    void showRows(const QVector<Row>& list, const QString& emptyText);
    void clearItems();
    // A left swipe moves the list towards its end, a right swipe back.
    int swipeLeftOr(int pageWhenAtEnd);
    int swipeRightOr(int pageWhenAtStart);

    virtual void onRowClicked(int key, bool on) = 0;

private:
    QScrollArea* scroll_area = nullptr;
    QWidget* content = nullptr;
    QLabel* empty_hint = nullptr;
    QVector<QPushButton*> rows;
};
