#pragma once

#include <ostream>

#include "Explain.h"

// The answer of a single-input command as a report for people: the hints
// first, then the verdict and every entry with its place, field, value,
// rule and message.
void printAnswer(std::ostream& out, const Json& answer, Language language);

// The last lines of a check: how many inputs, how many clean, with
// findings and failed, and the time taken.
void printCheckSummary(std::ostream& out, const Json& check, Language language);

// The title of a command's report, such as "Detail statement check", and
// the verdict of an answer in words, such as "can be converted with warnings".
std::string titleOf(const Json& answer, Language language);
std::string verdictInWords(const Json& answer, Language language);

// Where an entry is, such as "line 2, column 3" or "whole file".
std::string placeOf(const Json& entry, Language language);
