#pragma once

#include <regex>
#include <string>
#include <vector>

// A compiled ECMAScript regular expression.
class QZCRegex : public std::regex {
public:
    explicit QZCRegex(const std::string& pattern);

    // A new expression that the caller owns and deletes.
    static QZCRegex* builder(const std::string& pattern);

    // True when the pattern matches somewhere in the text.
    static bool rgx(const QZCRegex& regex, const std::string& text);
    // As above; on a match appends the whole match and every group (empty
    // for a group that took no part) to groups, which is not cleared first.
    static bool rgx(const QZCRegex& regex, const std::string& text, std::vector<std::string>& groups);

private:
    // The engine for a text: the backtracking one for short texts, where it
    // is faster and its recursion stays shallow, the polynomial one beyond.
    const std::regex& engineFor(const std::string& text) const;

    std::regex m_backtracking;
};
