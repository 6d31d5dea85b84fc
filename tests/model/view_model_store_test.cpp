// Change detection: a stored view model reports a change only when it
// differs, and a rebuild without a backend stores nothing.
#include "model/view_models/view_models.h"
#include "model/view_models/vm_store.h"

#include <gtest/gtest.h>

namespace modeltest {
namespace {

TEST(ViewModelStore, ReportsAChangeOnceAndNothingWithoutABackend)
{
    StoredViewModel<ConnectBTVM> store;
    bool changed = false;
    store.update(ConnectBTVM{3, true}, &changed);
    EXPECT_TRUE(changed);
    store.update(ConnectBTVM{3, true}, &changed);
    EXPECT_FALSE(changed);
    store.update(ConnectBTVM{}, &changed);
    EXPECT_TRUE(changed) << "back to the defaults is a change too";

    int computed = 0;
    changed = true;
    const ConnectBTVM offline = store.rebuild(
        false,
        [&] {
            ++computed;
            return ConnectBTVM{5, true};
        },
        &changed);
    EXPECT_EQ(offline, ConnectBTVM());
    EXPECT_FALSE(changed);
    EXPECT_EQ(computed, 0);
    store.rebuild(
        true, [] { return ConnectBTVM{}; }, &changed);
    EXPECT_FALSE(changed) << "the offline rebuild stored nothing";
    EXPECT_EQ(store.get(), ConnectBTVM());
}

} // namespace
} // namespace modeltest
