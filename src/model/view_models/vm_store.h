#pragma once

#include <QMutex>
#include <QMutexLocker>

// The last built instance of one view model. `update` stores a fresh build
// and says whether it differs from the one before, so that the window can
// skip the repaint of a page whose data did not change. Several stores may
// share one mutex, which then guards all of them.
template <class VM> class StoredViewModel {
public:
    StoredViewModel() : mutex_(own_mutex_) {}
    explicit StoredViewModel(QMutex& shared_mutex) : mutex_(shared_mutex) {}
    StoredViewModel(const StoredViewModel&) = delete;
    StoredViewModel& operator=(const StoredViewModel&) = delete;

    // Stores `fresh` whether or not it differs; `changed` may be null.
    VM update(VM fresh, bool* changed)
    {
        QMutexLocker lock(&mutex_);
        const bool differs = fresh != stored_;
        stored_ = fresh;
        if (changed) {
            *changed = differs;
        }
        return fresh;
    }

    // One refresh of a page: without a backend there is nothing to build
    // from, so the default record comes back, nothing is stored and no change
    // is reported; otherwise `compute()` is stored as by update().
    template <class Compute> VM rebuild(bool has_backend, Compute&& compute, bool* changed)
    {
        if (changed) {
            *changed = false;
        }
        if (!has_backend) {
            return VM{};
        }
        return update(compute(), changed);
    }

    VM get() const
    {
        QMutexLocker lock(&mutex_);
        return stored_;
    }

private:
    QMutex own_mutex_;
    QMutex& mutex_;
    VM stored_{};
};
