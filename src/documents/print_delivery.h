#pragma once

#include <functional>

#include "form/desk.h"

namespace zelvo {

/// Keeps what was printed with the record that it was printed from.
using KeepCopy = std::function<Result<void>(const PrintedCopy& copy)>;

/// A document on its way to paper, and where its copy is kept; nowhere when `keep` is empty.
struct PrintRequest {
  PrintJob job;
  KeepCopy keep;
};

/// Prints a document, and keeps a copy when the options ask for one. Printed without its copy is an error that says so.
Result<void> printNow(Desk& desk, const PrintRequest& request);

/// Brings a document to the user as the options say: its pages are shown first, or it is opened for changes first, and
/// printed from there; else it is printed at once.
Result<void> deliver(Desk& desk, const PrintRequest& request);

}  // namespace zelvo
