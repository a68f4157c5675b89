// SPDX-License-Identifier: Apache-2.0
// Lengths, elevations and angles as drawings, comparisons and the report show them.
#include "core/model/Measures.h"

#include <gtest/gtest.h>

namespace tw {
namespace {

struct Case {
    const char* in;
    const char* out;
};

TEST(Measures, FeetAndInchesToTheNearestSixteenth) {
    const Case cases[] = {
        {"4.2500", "4'-3\""},
        {"80.0000", "80'-0\""},
        {"2.7292", "2'-8 3/4\""},    // 32.7504 in
        {"0.0052", "0'-0 1/16\""},   // 0.0624 in
        {"0.0026", "0'-0\""},        // 0.0312 in: under half a sixteenth
        {"0.0027", "0'-0 1/16\""},   // 0.0324 in: over it
        {"0.5000", "0'-6\""},        // 8/16 and 4/16 and 2/16 are reduced
        {"0.0208", "0'-0 1/4\""},    // 0.2496 in
        {"0.9960", "0'-11 15/16\""}, // 11.952 in
        {"0.9975", "1'-0\""},        // 11.97 in: 11 15/16 rounds up and carries into the foot
        {"11.9999", "12'-0\""},      // the inches carry into the next foot
        {"-4.2500", "-4'-3\""},      // a closing distance that runs backwards
        {"-0.0001", "0'-0\""},       // no minus on a value that rounds to nothing
        {"999.9999", "1000'-0\""},
        {"", ""},
        {"   ", ""},
        {"abc", "abc"}, // what the field holds, rather than a number it does not
        {" 3 ", "3'-0\""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(lengthText(c.in, LengthUnits::FeetInches), c.out) << '"' << c.in << '"';
}

TEST(Measures, DecimalFeetWithTheUnit) {
    const Case cases[] = {
        {"4.2500", "4.25'"},   {"80.0000", "80.00'"},  {"2.7292", "2.7292'"}, {"0.7500", "0.75'"},
        {"-6.0000", "-6.00'"}, {"1.23456", "1.2346'"}, {"-0.00001", "0.00'"}, {"", ""},
        {"x1", "x1"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(lengthText(c.in, LengthUnits::DecimalFeet), c.out) << '"' << c.in << '"';
    EXPECT_EQ(formatLength(12.5, LengthUnits::DecimalFeet), "12.50'");
}

TEST(Measures, ElevationsWithTwoDecimalsOrAsManyAsTyped) {
    const Case cases[] = {
        {"300.77", "EL. 300.77"},
        {"300.7", "EL. 300.70"},
        {"300", "EL. 300.00"},
        {"300.775", "EL. 300.775"},
        {"-5.5", "EL. -5.50"},
        {" 96.25 ", "EL. 96.25"},
        {"1E2", "EL. 100.00"},
        {"", ""},
        {"  ", ""},
        {"12ft", "12ft"},
        {".5", "EL. 0.50"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(elevationText(c.in), c.out) << '"' << c.in << '"';
}

TEST(Measures, AnglesInOneFormWithTheirCarries) {
    struct AngleCase {
        const char *d, *m, *s, *out;
    } cases[] = {
        {"90", "0", "0.0",
         "90\xC2\xB0"
         "00'00\""},
        {"90", "0", "00.0",
         "90\xC2\xB0"
         "00'00\""}, // the wingwalls' seconds read "00.0"
        {"75", "30", "15.5",
         "75\xC2\xB0"
         "30'15.5\""},
        {"75", "30", "15",
         "75\xC2\xB0"
         "30'15\""},
        {"80", "", "",
         "80\xC2\xB0"
         "00'00\""}, // blank minutes and seconds are none
        {"10", "59", "59.95",
         "11\xC2\xB0"
         "00'00\""}, // 59.95" rounds to the next minute, and on
        {"10", "5", "59.95",
         "10\xC2\xB0"
         "06'00\""},
        {"10", "5", "59.94",
         "10\xC2\xB0"
         "05'59.9\""},
        {"-5", "30", "0",
         "-5\xC2\xB0"
         "30'00\""}, // the degrees' sign carries the whole angle
        {"", "", "", ""},
        {"9x", "0", "0",
         "9x\xC2\xB0"
         "0'0\""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(angleText(c.d, c.m, c.s), c.out) << c.d << ' ' << c.m << ' ' << c.s;
    EXPECT_EQ(formatAngle(89.999999), "90\xC2\xB0"
                                      "00'00\"");
}

TEST(Measures, UnitsByName) {
    for (LengthUnits u : {LengthUnits::FeetInches, LengthUnits::DecimalFeet})
        EXPECT_EQ(unitsNamed(unitsName(u)), u);
    EXPECT_FALSE(unitsNamed("inches"));
    EXPECT_FALSE(unitsNamed(""));
}

} // namespace
} // namespace tw
