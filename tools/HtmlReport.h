#pragma once

#include <string>

#include "Explain.h"

// One self-contained HTML page (inline CSS, no script, nothing fetched) of
// answers: an overview of every input with its verdict; per input (those
// that failed first, then those with findings, then the clean ones) its
// hints, its entries, and its data as a table with each offending cell
// marked and its messages on the cell. A file of more than 200 lines shows the lines
// with errors and three lines around each, at most 200 lines.
std::string htmlPage(const Json& answers, Language language);
