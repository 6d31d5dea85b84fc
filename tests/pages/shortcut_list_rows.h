#pragma once
// Reads back what a shortcut list row shows.
#include "page_test_support.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVariant>

namespace pagetest {

struct ShownRow {
    QString name;
    QString status;
    QString statusState;
    QString btnState;
};

inline ShownRow readRow(const QPushButton* row)
{
    ShownRow shown;
    if (const QLabel* name = firstByClass<QLabel>(row, "v2-sys-card-label"))
        shown.name = name->text();
    if (const QLabel* status = firstByClass<QLabel>(row, "v2-shortcut-status")) {
        shown.status = status->text();
        shown.statusState = status->property("state").toString();
    }
    shown.btnState = row->property("btn-state").toString();
    return shown;
}

inline int scrollValue(const QScrollArea* area)
{
    return area->horizontalScrollBar()->value();
}
inline int scrollMaximum(const QScrollArea* area)
{
    return area->horizontalScrollBar()->maximum();
}

} // namespace pagetest
