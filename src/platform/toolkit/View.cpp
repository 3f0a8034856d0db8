#include "platform/toolkit/View.h"

#include <algorithm>

namespace specialpages::platform {

View::~View() {
    for (const auto& subview : subviews_) {
        subview->superview_ = nullptr;
    }
}

const std::shared_ptr<const NibSource>& View::nib() const {
    return nib_ == nullptr && superview_ != nullptr ? superview_->nib() : nib_;
}

void View::setTag(std::int32_t tag) {
    if (tag_ != tag) {
        tag_ = tag;
        announce(ViewChange::tag);
    }
}

void View::setEnabled(bool enabled) {
    if (enabled_ != enabled) {
        enabled_ = enabled;
        announce(ViewChange::enabled);
    }
}

void View::setHidden(bool hidden) {
    if (hidden_ != hidden) {
        hidden_ = hidden;
        announce(ViewChange::hidden);
    }
}

bool View::isVisible() const {
    return !hidden_ && (superview_ == nullptr || superview_->isVisible());
}

void View::setToolTip(std::string toolTip) {
    if (toolTip_ != toolTip) {
        toolTip_ = std::move(toolTip);
        announce(ViewChange::toolTip);
    }
}

void View::setTargetAction(const void* target, Action action) {
    target_ = action ? target : nullptr;
    action_ = std::move(action);
}

void View::sendAction() {
    // A copy, since the action may set another one while it runs.
    if (const Action action = action_) {
        action(*this);
    }
}

View* View::viewWithTag(std::int32_t tag) {
    if (tag_ == tag) {
        return this;
    }
    for (const auto& subview : subviews_) {
        View* found = subview->kind() == ViewKind::window ? nullptr : subview->viewWithTag(tag);
        if (found != nullptr) {
            return found;
        }
    }
    return nullptr;
}

void View::display() {
    announce(ViewChange::display);
}

int View::addObserver(Observer observer) {
    observers_.emplace_back(nextObserver_, std::move(observer));
    return nextObserver_++;
}

void View::removeObserver(int number) {
    std::erase_if(observers_, [&](const auto& entry) { return entry.first == number; });
}

void View::announce(ViewChange change) {
    // By numbers and copies, since an observer may take itself or another one away while it is told.
    std::vector<int> numbers;
    numbers.reserve(observers_.size());
    for (const auto& entry : observers_) {
        numbers.push_back(entry.first);
    }
    for (const int number : numbers) {
        const auto entry = std::ranges::find(observers_, number, &std::pair<int, Observer>::first);
        if (entry == observers_.end() || !entry->second) {
            continue;
        }
        const Observer observer = entry->second;
        observer(*this, change);
    }
}

} // namespace specialpages::platform
