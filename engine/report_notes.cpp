#include "engine/report_notes.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "crawl/crawl_state.h"
#include "engine/main_window.h"
#include "text/text.h"

namespace bas_Connections {

namespace {

using platform::SocketFailure;
using platform::SocketState;

constexpr int kMostAttempts = 3;

/// What the slot has received on its present connection.
std::string_view AnswerOf(const crawl::ConnectionSlot& slot) {
    const std::string_view response = slot.Response.View();
    return response.substr(std::min(slot.AnswerStart, response.size()));
}

std::string AfterBytes(const std::string& what, std::size_t bytes) {
    return bytes == 0 ? what : what + " after " + std::to_string(bytes) + " bytes";
}

std::string WhyFailed(int index) {
    const platform::Socket& socket = engine::Window().Sock(index);
    const std::size_t bytes = AnswerOf(crawl::Slots[index]).size();
    switch (socket.Failure()) {
        case SocketFailure::NameUnknown:
            return "name unknown";
        case SocketFailure::NotLookedUp:
            return "no name server answered";
        case SocketFailure::Refused:
            return "refused";
        case SocketFailure::Unreachable:
            return "unreachable";
        case SocketFailure::Reset:
            return AfterBytes("reset", bytes);
        case SocketFailure::OutOfMemory:
            return "out of memory";
        case SocketFailure::Silent:
        case SocketFailure::None:
            break;
    }
    if (socket.State() == SocketState::Closing) return "closed without an answer";
    return AfterBytes("silent", bytes);
}

/// Removes the next line from `rest` and returns it without its LF or CR LF.
std::string_view TakeLine(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::string_view WithoutBlanks(std::string_view s) {
    const std::size_t begin = s.find_first_not_of(" \t");
    if (begin == s.npos) return {};
    return s.substr(begin, s.find_last_not_of(" \t") + 1 - begin);
}

/// The number if all of `digits` is one; otherwise nothing.
template <typename Number>
std::optional<Number> NumberFrom(std::string_view digits) {
    Number number{};
    const char* const end = digits.data() + digits.size();
    const auto [stopped, error] = std::from_chars(digits.data(), end, number);
    return error == std::errc() && stopped == end ? std::optional(number) : std::nullopt;
}

/// The value of a header line if its name is `name`, which is in lower case.
std::optional<std::string_view> HeaderValue(std::string_view line, std::string_view name) {
    if (line.size() <= name.size() || line[name.size()] != ':' ||
        text::LowerCase(line.substr(0, name.size())) != name) {
        return std::nullopt;
    }
    return WithoutBlanks(line.substr(name.size() + 1));
}

/// The part before the body, including the blank line at its end. An answer that ends inside its
/// header is all header; one without a header is all body.
std::string_view HeaderOf(std::string_view answer) {
    const bool has_status = answer.starts_with("HTTP/");
    for (const std::string_view blank_line :
         {std::string_view("\r\n\r\n"), std::string_view("\n\n")}) {
        const std::size_t end = answer.find(blank_line);
        if (end != answer.npos) return answer.substr(0, end + blank_line.size());
        if (!has_status) break;
    }
    return has_status ? answer : std::string_view();
}

void ReadHeader(std::string_view header, crawl::Answer& answer) {
    const std::string_view status_line = TakeLine(header);
    if (!status_line.starts_with("HTTP/")) return;
    const std::string_view status =
        WithoutBlanks(status_line.substr(std::min(status_line.find(' '), status_line.size())));
    answer.status = NumberFrom<std::uint16_t>(status.substr(0, 3)).value_or(0);
    const bool moved = answer.status >= 300 && answer.status < 400;
    if (answer.status >= 400) answer.detail = WithoutBlanks(text::Mid(status, 4));
    while (!header.empty()) {
        const std::string_view line = TakeLine(header);
        if (const auto length = HeaderValue(line, "content-length")) {
            answer.announced = NumberFrom<std::uint64_t>(*length);
        } else if (const auto location = HeaderValue(line, "location"); moved && location) {
            answer.detail = *location;
        }
    }
}

}  // namespace

void NoteFailedTry(int index) {
    const crawl::ConnectionSlot& slot = crawl::Slots[index];
    const platform::Socket& socket = engine::Window().Sock(index);
    if (socket.State() == SocketState::Closed) return;
    const std::string why = WhyFailed(index);
    if (slot.Attempts < kMostAttempts) {
        crawl::Report.NoteFailedTry(slot.Row, slot.Attempts, why);
    } else {
        const bool too_large = socket.Failure() == SocketFailure::OutOfMemory;
        crawl::Report.End(slot.Row,
                          too_large ? crawl::Outcome::TooLarge : crawl::Outcome::Unanswered,
                          slot.Attempts, why);
    }
}

void NoteFailedConnections() {
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        if (engine::Window().Sock(i).State() != SocketState::Error) continue;
        const crawl::ConnectionSlot& slot = crawl::Slots[i];
        crawl::Report.NoteFailedTry(slot.Row, slot.Attempts, WhyFailed(i));
    }
}

void NoteAnswer(int index) {
    const crawl::ConnectionSlot& slot = crawl::Slots[index];
    const std::string_view received = AnswerOf(slot);
    const std::string_view header = HeaderOf(received);
    crawl::Answer answer;
    answer.bytes = received.size() - header.size();
    ReadHeader(header, answer);
    crawl::Report.NoteAnswer(slot.Row, slot.Attempts, answer);
}

}  // namespace bas_Connections
