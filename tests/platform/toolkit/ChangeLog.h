// Notes every change that a view announces, in order.
#pragma once

#include "platform/toolkit/View.h"

#include <utility>
#include <vector>

namespace specialpages::platform {

using Changes = std::vector<ViewChange>;

/// Borrows the view, which lives longer.
class ChangeLog {
  public:
    explicit ChangeLog(View& view)
        : view_(view), number_(view.addObserver(
                           [this](View& /*view*/, ViewChange change) { changes_.push_back(change); })) {}
    ChangeLog(const ChangeLog&) = delete;
    ChangeLog& operator=(const ChangeLog&) = delete;
    ~ChangeLog() { view_.removeObserver(number_); }

    /// What was announced since the last taking.
    Changes take() { return std::exchange(changes_, {}); }

  private:
    View& view_;
    int number_;
    Changes changes_;
};

} // namespace specialpages::platform
