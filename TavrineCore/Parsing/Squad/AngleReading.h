#pragma once

namespace tavrine {

class TokenList;

namespace passes {

/// 40° 26' 46" N → one `degreesMinutesSeconds`; two of them beside each other → `gpsCoordinates`. Counts on the marks
/// standing in compounds, whatever units they were read as.
void identifyDMS(TokenList& list);

}  // namespace passes

}  // namespace tavrine
