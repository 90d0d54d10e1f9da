#pragma once

namespace tavrine {

/// Empty: settings go by value and caches live where they are used. Only the name is kept.
class GlobalEngineState {};

}  // namespace tavrine
