#pragma once

#include <QObject>
#include <atomic>
#include <functional>

namespace dialogs {

class ProgressDialog;

/// Short work that the next thing on the screen stands on, such as the values that a dialog opens with: done
/// on a thread of its own, while the windows are painted and take no input. After a while the progress dialog
/// stands over them, from the tenth second on with a button that ends the wait. GUI thread.
class Waiting {
 public:
    /// The dialog outlives the object.
    explicit Waiting(ProgressDialog& progress);

    /// Returns when the work has ended. Waits do not nest: within one, the work is done on the calling
    /// thread.
    void forWork(const std::function<void()>& work);

    /// Called at the end of each wait that was not within another.
    void setEnded(std::function<void()> ended) { ended_ = std::move(ended); }

    bool isWaiting() const { return isWaiting_; }
    /// The user does not want to wait any longer.
    void stop() { isStopped_ = isWaiting_; }
    /// Whether the user still wants to wait; any thread.
    bool isWanted() const { return !isStopped_; }

 private:
    ProgressDialog& progress_;
    QObject receiver_;  ///< of the dialog's signal
    std::atomic<bool> isStopped_ = false;
    bool isWaiting_ = false;
    std::function<void()> ended_;
};

}  // namespace dialogs
