#pragma once

#include <QImage>

#include "documents/document.h"

namespace zelvo {

/// The dots of a picture that is a file of dots. Null when it cannot be read, or asks for more memory than a sheet that
/// was scanned finely needs.
QImage imageOf(const Picture& picture);

}  // namespace zelvo
