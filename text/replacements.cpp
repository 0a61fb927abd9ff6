#include "text/replacements.h"

#include <algorithm>
#include <utility>

#include "text/text.h"

namespace text {

namespace {

/// Whether an occurrence of `pattern` can overlap `made`, a replacement that was just inserted. If
/// `made` is empty, the texts on its two sides now touch, and any pattern may have formed.
bool CanTouch(std::string_view pattern, std::string_view made) {
    if (made.empty()) return true;
    for (std::size_t skip = 0; skip < made.size(); ++skip) {
        const std::string_view rest = made.substr(skip);
        if (rest.starts_with(pattern) || pattern.starts_with(rest)) return true;
    }
    for (std::size_t skip = 1; skip < pattern.size(); ++skip) {
        const std::string_view rest = pattern.substr(skip);
        if (rest.starts_with(made) || made.starts_with(rest)) return true;
    }
    return false;
}

}  // namespace

bool Replacements::Step::FindsAnyIn(std::string_view subject) const {
    return characters ? characters->Changes(subject) : Contains(subject, rule.pattern);
}

/// Returns false if nothing was found.
bool Replacements::Step::ApplyTo(std::string& subject) const {
    if (!characters) return ReplaceAllIn(subject, rule.pattern, rule.replacement);
    if (!characters->Changes(subject)) return false;
    characters->ApplyTo(subject);
    return true;
}

std::string Replacements::Step::AppliedTo(std::string_view subject) const {
    const std::size_t spare = subject.size() / 4 + 64;  // for the later steps
    if (characters) return characters->AppliedTo(subject, spare);
    std::string copy;
    copy.reserve(subject.size() + spare);
    copy.append(subject);
    ApplyTo(copy);
    return copy;
}

/// Whether this step can create an occurrence of `pattern`.
bool Replacements::Step::CanMake(std::string_view pattern) const {
    if (!characters) return CanTouch(pattern, rule.replacement);
    const std::string& changed = characters->Changed();
    return std::any_of(changed.begin(), changed.end(),
                       [&](char c) { return CanTouch(pattern, characters->Of(c)); });
}

Replacements::Replacements(const std::vector<Rule>& rules)
    : steps_(StepsFor(rules)), scan_(PatternsOf(steps_)) {}

Replacements::Steps Replacements::StepsFor(const std::vector<Rule>& rules) {
    Steps steps;
    for (const Rule& rule : rules) {
        if (rule.pattern == rule.replacement) continue;
        std::unique_ptr<CharacterMap> characters;
        if (rule.pattern.size() == 1) {
            if (!steps.empty() && steps.back().characters &&
                steps.back().characters->Add(rule.pattern[0], rule.replacement)) {
                continue;
            }
            characters = std::make_unique<CharacterMap>();
            if (!characters->Add(rule.pattern[0], rule.replacement)) characters.reset();
        }
        steps.push_back({rule, std::move(characters)});
    }
    return steps;
}

std::vector<std::string> Replacements::PatternsOf(const Steps& steps) {
    std::vector<std::string> patterns;
    patterns.reserve(steps.size());
    for (const Step& step : steps) {
        patterns.push_back(step.rule.pattern);
    }
    return patterns;
}

/// The later steps whose patterns this step can create.
Replacements::Indices Replacements::MadeBy(std::size_t step) const {
    Indices made;
    for (std::size_t later = step + 1; later < steps_.size(); ++later) {
        made[later] = steps_[step].CanMake(steps_[later].rule.pattern);
    }
    return made;
}

void Replacements::ApplyTo(std::string& subject) const {
    ApplyFrom(0, scan_.MayOccur(subject), {}, subject);
}

std::optional<std::string> Replacements::AppliedTo(std::string_view subject) const {
    const Indices may_find = scan_.MayOccur(subject);
    for (std::size_t i = 0; i < steps_.size(); ++i) {
        if (!may_find[i] || !steps_[i].FindsAnyIn(subject)) continue;
        std::string copy = steps_[i].AppliedTo(subject);
        ApplyFrom(i + 1, may_find, MadeBy(i), copy);
        return copy;
    }
    return std::nullopt;
}

/// Applies the steps from `first` on. The patterns in `may_find` may occur in `subject` as last
/// scanned; those in `made` may have been created since.
void Replacements::ApplyFrom(std::size_t first, Indices may_find, Indices made,
                             std::string& subject) const {
    for (std::size_t i = first; i < steps_.size(); ++i) {
        if (made[i] && !may_find[i]) {
            may_find = scan_.MayOccur(subject, ~made | may_find) & (made | may_find);
            made.reset();
        }
        if (may_find[i] && steps_[i].ApplyTo(subject)) made |= MadeBy(i);
    }
}

}  // namespace text
