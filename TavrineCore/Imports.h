#pragma once

/// The engine speaks the platform layer's names as its own: `Decimal`, `Locale`, `NSRange`, ...
namespace tavrine::foundation {}
namespace tavrine {
using namespace foundation;
}
