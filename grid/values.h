#pragma once
// How the control turns field values and cell texts into numbers, texts and colours, and how it
// puts together the text of the query a load runs. Pure functions of their arguments and the
// system's number settings.
#include <string>
#include <string_view>

#include "platform/db/value.h"
#include "platform/runtime/colour.h"

namespace TabulonLib12 {

// A value as a number: 0 for Null, the empty text and anything that is not numeric.
double ValoreNumerico(const Value& v);
double ValoreNumerico(std::string_view text);
// A value as text: the empty text for Null.
std::string ValoreTesto(const Value& v);

// A colour from three numbers, red, green and blue, joined by commas. The empty text gives
// white; any other number of parts gives 0 (black).
Colour ColoreDaTesto(std::string_view text);

// The query as a load runs it: the text, then " ORDER BY " and the sort term when there is one,
// then " DESC" when the sort is descending. Nothing is parsed: a query that already ends in an
// ORDER BY gets a second one, and the engine refuses it.
std::string AssembleQuery(const std::string& query, const std::string& orderTerm, bool descending);

// The connect text that carries a database password; empty without one.
std::string ConnectText(const std::string& password);

// The decimal text of a whole number.
std::string DecimalText(int64_t n);

}  // namespace TabulonLib12
