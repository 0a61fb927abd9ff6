#include "text/field_walker.h"

#include "text/text.h"

namespace text {

FieldWalker::FieldWalker(std::string_view text, std::string_view separator)
    : rest_(Trim(text)), separator_(separator) {}

std::optional<std::string_view> FieldWalker::Next() {
    if (!rest_) return std::nullopt;
    const std::size_t end = separator_.size() == 1 ? rest_->find(separator_[0]) : rest_->npos;
    const std::string_view field = rest_->substr(0, end);
    if (end == rest_->npos) {
        rest_.reset();
    } else {
        rest_->remove_prefix(end + 1);
    }
    return field;
}

}  // namespace text
