#pragma once

#include "crawl/crawl_state.h"

namespace crawl {

/// Tells whoever works on a slot's job across a place where events run whether that job is still
/// the slot's. A stop ends it, and a crawl started right afterwards gives the slot another one,
/// whose response and connection are not to be touched by what is left of the old one's handlers.
class JobWatch {
  public:
    /// A number that names no slot has a job that never ends.
    explicit JobWatch(int slot) : slot_(slot), job_(Current()) {}

    bool Ended() const { return Current() != job_; }

  private:
    unsigned Current() const { return Slots.Has(slot_) ? Slots[slot_].Job : 0; }

    int slot_;
    unsigned job_;
};

}  // namespace crawl
