#pragma once

#include "base/result.h"
#include "data/catalogue.h"
#include "data/value.h"

namespace zelvo {

/// The value as its column holds it: a text cut to the column's length, a date read from a text, a lenient number. Null
/// stays null; a blank text is no date. A text that is no date for a date column is refused, or it would be lost.
Result<Value> fitted(const Column& column, Value value);

/// Whether the value is as its column holds it already; it may say no of one that is.
bool fits(const Column& column, const Value& value);

}  // namespace zelvo
