#include "QZCRegex.h"

// The polynomial (Thompson) executor of the standard library keeps its
// recursion bounded by the size of the pattern, where the default
// backtracking executor recurses once per input character and overflows the
// stack on long fields. It gives the same ECMAScript results for patterns
// without back-references, which is all the library uses.
QZCRegex::QZCRegex(const std::string& pattern)
    : std::regex(pattern, std::regex_constants::ECMAScript | std::regex_constants::__polynomial)
{
}

QZCRegex* QZCRegex::builder(const std::string& pattern)
{
    return new QZCRegex(pattern);
}

bool QZCRegex::rgx(const QZCRegex& regex, const std::string& text)
{
    return std::regex_search(text, regex);
}

bool QZCRegex::rgx(const QZCRegex& regex, const std::string& text, std::vector<std::string>& groups)
{
    std::smatch match;
    if (!std::regex_search(text, match, regex))
        return false;
    for (const auto& group : match)
        groups.push_back(group.matched ? group.str() : std::string());
    return true;
}
