#include "QZCRegex.h"

namespace {

// Longest text given to the backtracking executor, which recurses once per
// input character.
constexpr size_t kBacktrackingLimit = 256;

}  // namespace

// The polynomial (Thompson) executor of the standard library keeps its
// recursion bounded by the size of the pattern, where the default
// backtracking executor recurses once per input character and overflows the
// stack on long fields. Both give the same ECMAScript results for patterns
// without back-references, which is all the library uses; the backtracking
// one is about twice as fast on the short values of a statements file.
QZCRegex::QZCRegex(const std::string& pattern)
    : std::regex(pattern, std::regex_constants::ECMAScript | std::regex_constants::__polynomial),
      m_backtracking(pattern, std::regex_constants::ECMAScript)
{
}

const std::regex& QZCRegex::engineFor(const std::string& text) const
{
    return text.size() <= kBacktrackingLimit ? m_backtracking : *this;
}

QZCRegex* QZCRegex::builder(const std::string& pattern)
{
    return new QZCRegex(pattern);
}

bool QZCRegex::rgx(const QZCRegex& regex, const std::string& text)
{
    return std::regex_search(text, regex.engineFor(text));
}

bool QZCRegex::rgx(const QZCRegex& regex, const std::string& text, std::vector<std::string>& groups)
{
    std::smatch match;
    if (!std::regex_search(text, match, regex.engineFor(text)))
        return false;
    for (const auto& group : match)
        groups.push_back(group.matched ? group.str() : std::string());
    return true;
}
