// SPDX-License-Identifier: Apache-2.0
// What counts as a number and how the field formatter writes it.
#include "core/model/Numeric.h"

#include <gtest/gtest.h>

namespace tw {
namespace {

TEST(Numeric, WhatCountsAsANumber) {
    for (const char* yes : {"0", "12", "-12", "+3", "1.5", "-0.25", ".5", "5.", " 7 ", "1E-08", "2e3", "\t4\t"})
        EXPECT_TRUE(isNumeric(yes)) << yes;
    for (const char* no : {"", " ", ".", "-", "-.", "1.2.3", "12ft", "abc", "1 2", "--1", "1e", "0x10"})
        EXPECT_FALSE(isNumeric(no)) << no;
}

TEST(Numeric, LeadingNumber) {
    struct Case {
        const char* text;
        double value;
    } cases[] = {{"", 0}, {"abc", 0}, {"45", 45}, {" 99.01", 99.01}, {"12ft", 12}, {"-3.5x", -3.5}, {".5", 0.5}};
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(leadingNumber(c.text), c.value) << c.text;
}

TEST(Numeric, FieldFormatter) {
    struct Case {
        int d, p;
        const char* in;
        const char* out;
    } cases[] = {
        {2, 4, "2", "2.0000"},       {2, 4, "123.45", "23.4500"},
        {2, 4, "-12.5", "12.5000"},  {2, 4, "0.5", "0.5000"},
        {2, 4, ".5", "0.5000"},      {2, 4, "-0.5", "-0.5000"},
        {4, 2, "1234.5", "1234.50"}, {4, 2, "-12.345", "-12.35"},
        {4, 2, "2.675", "2.68"},     {3, 4, "45", "45.0000"},
        {3, 4, "99.01", "99.0100"},  {3, 0, "90", "90"},
        {3, 0, "12345", "2345"},     {2, 0, "7", "7"},
        {2, 1, "5", "5.0"},          {2, 1, "59.95", "60.0"},
        {4, 4, "5", "5.0000"},       {4, 4, "-123456.5", "3456.5000"},
        {2, 4, "abc", ""},           {2, 4, "", ""},
        {2, 4, "1.2.3", ""},         {2, 4, " 3 ", "3.0000"},
        {4, 2, "-0.001", "0.00"},    {2, 4, "9.99999", "10.0000"},
        {4, 4, "1E-08", "0.0000"},   {4, 4, "-2.5e1", "-25.0000"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(formatField(c.d, c.p, c.in), c.out) << "(" << c.d << "," << c.p << ") " << c.in;
}

TEST(Numeric, SingleToTextKeepsSevenDigits) {
    EXPECT_EQ(singleToText(5.0f), "5");
    EXPECT_EQ(singleToText(40.0f - 35.0f), "5");
    EXPECT_EQ(singleToText(0.1f + 0.2f), "0.3");
    EXPECT_EQ(singleToText(-2.5f), "-2.5");
}

} // namespace
} // namespace tw
