#include "browser/ItemSorter.h"

namespace browser {

ItemSorter::ItemSorter(TakeItems takeItems, Sorted sorted)
    : takeItems_(std::move(takeItems)),
      sorted_(std::move(sorted)),
      loader_([this](unsigned, const std::vector<std::int32_t>& order) { end(order); }) {}

ItemSorter::~ItemSorter() {
    cancel();
}

void ItemSorter::sort(const SortSettings& settings) {
    if (state_ == State::Running && settings == settings_) {
        again_ = true;
        return;
    }
    const bool wanted = state_ == State::Wanted;
    if (!wanted) cancel();
    settings_ = settings;
    if (!wanted) beginSoon();
}

void ItemSorter::cancel() {
    if (cancelled_ != nullptr) *cancelled_ = true;
    cancelled_.reset();
    loader_.clear();
    state_ = State::Idle;
    again_ = false;
    ++generation_;
}

void ItemSorter::beginSoon() {
    state_ = State::Wanted;
    ++generation_;
    QMetaObject::invokeMethod(
        &receiver_,
        [this, generation = generation_] {
            if (generation == generation_) begin();
        },
        Qt::QueuedConnection);
}

void ItemSorter::begin() {
    state_ = State::Running;
    cancelled_ = std::make_shared<std::atomic_bool>(false);
    const auto taken = std::make_shared<const Items>(takeItems_());
    static_cast<void>(loader_.request(generation_, [taken, settings = settings_, cancelled = cancelled_] {
        return sortItems(taken->folder, taken->items, taken->order, settings, cancelled.get());
    }));
}

void ItemSorter::end(const std::vector<std::int32_t>& order) {
    state_ = State::Idle;
    cancelled_.reset();
    if (std::exchange(again_, false)) beginSoon();
    sorted_(order);
}

}  // namespace browser
