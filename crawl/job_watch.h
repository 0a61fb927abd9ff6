#pragma once

#include "crawl/crawl_state.h"

namespace crawl {

/// Tells whether a slot still has the same job, for code that works on the slot while events run. A
/// stop ends the job, and a crawl started right afterwards may reuse the slot while handlers of the
/// old job are still running. Such a handler must not touch the new job's response and connection.
class JobWatch {
  public:
    /// An invalid slot number is allowed; its job never ends.
    explicit JobWatch(int slot) : slot_(slot), job_(Current()) {}

    bool Ended() const { return Current() != job_; }

  private:
    unsigned Current() const { return Slots.Has(slot_) ? Slots[slot_].Job : 0; }

    int slot_;
    unsigned job_;
};

}  // namespace crawl
