#include "engine/response_memory.h"

#include <cstdint>
#include <limits>

#include "crawl/crawl_state.h"
#include "engine/main_window.h"

namespace bas_Connections {

std::size_t MostResponseBytes = std::numeric_limits<std::int32_t>::max();

namespace {

using platform::SocketState;

/// The most that an idle slot may keep of its last response.
constexpr std::size_t kMostLeftover = std::size_t{64} << 20;

bool Fits(std::size_t size) {
    for (const crawl::ConnectionSlot& slot : crawl::Slots) {
        size += slot.Response.BytesHeld();
    }
    return size <= MostResponseBytes;
}

void DropLeftovers() {
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        if (engine::Window().Sock(i).State() == SocketState::Closed) {
            crawl::Slots[i].Response.Clear();
        }
    }
}

/// Whether more data may come. A complete response, in state Closing, is being processed or waits
/// for that, and is not given up for one that may never end.
bool IsComingIn(int index) {
    const SocketState state = engine::Window().Sock(index).State();
    return state != SocketState::Closed && state != SocketState::Closing;
}

/// The slot with the largest response, among slot `index` and those that are still receiving.
int LargestResponse(int index) {
    int largest = index;
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        if (IsComingIn(i) &&
            crawl::Slots[i].Response.BytesHeld() > crawl::Slots[largest].Response.BytesHeld()) {
            largest = i;
        }
    }
    return largest;
}

}  // namespace

bool MakeRoom(std::size_t size, int index) {
    if (Fits(size)) return true;
    DropLeftovers();
    while (!Fits(size)) {
        const int largest = LargestResponse(index);
        GiveUp(largest);
        if (largest == index) return false;
    }
    return true;
}

void GiveUp(int index) {
    crawl::ConnectionSlot& slot = crawl::Slots[index];
    slot.Response.Assign("CANCEL");
    crawl::Report.End(slot.Row, crawl::Outcome::TooLarge, slot.Attempts);
    ++slot.Job;
    engine::Window().Sock(index).Close();
    SetSlotStatus(index, "Given up: too large for memory");
}

void GiveBackLeftover(int index) {
    text::ConsumableText& response = crawl::Slots[index].Response;
    if (response.BytesHeld() > kMostLeftover) response.Clear();
}

}  // namespace bas_Connections
