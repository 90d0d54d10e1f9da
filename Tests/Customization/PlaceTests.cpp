#include <gtest/gtest.h>

#include "Foundation/Decimal.h"
#include "Foundation/TimeZone.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Imports.h"

namespace tavrine {
namespace {

Place placeOf(Place::PlaceType type) {
  return {.name = "somewhere", .aliases = {}, .timeZone = TimeZone::gmt(), .type = std::move(type)};
}

const GPSCoordinates kPoint{Decimal::parse("40.64").value(), Decimal::parse("-73.78").value()};

TEST(PlaceTest, CitiesLieWhereTheirTextsSay) {
  City city;
  EXPECT_FALSE(placeOf(city).gpsCoordinates());
  city.latitude = "40.64";
  EXPECT_FALSE(placeOf(city).gpsCoordinates());
  city.longitude = "-73.78";
  EXPECT_EQ(placeOf(city).gpsCoordinates(), kPoint);
  city.latitude = "91";
  EXPECT_FALSE(placeOf(city).gpsCoordinates());
  city.latitude = "north";
  EXPECT_FALSE(placeOf(city).gpsCoordinates());
}

TEST(PlaceTest, AirportsHaveBothNumbersInOneText) {
  Airport airport;
  for (const char* const text : {"40.64, -73.78", "40.64,-73.78", " 40.64 , -73.78 "}) {
    airport.coordinates = text;
    EXPECT_EQ(placeOf(airport).gpsCoordinates(), kPoint) << text;
  }
  for (const char* const text : {"", ",", "40.64", "40.64 -73.78", "40.64,", "1,2,3", "40.64, 181"}) {
    airport.coordinates = text;
    EXPECT_FALSE(placeOf(airport).gpsCoordinates()) << text;
  }
}

TEST(PlaceTest, OtherPlaces) {
  EXPECT_EQ(placeOf(CustomPlace{"home", TimeZone::gmt(), kPoint}).gpsCoordinates(), kPoint);
  EXPECT_FALSE(placeOf(CustomPlace{"home", TimeZone::gmt(), {}}).gpsCoordinates());
  EXPECT_FALSE(placeOf(Country{}).gpsCoordinates());
  EXPECT_FALSE(placeOf(Place::Unspecified{}).gpsCoordinates());
}

}  // namespace
}  // namespace tavrine
