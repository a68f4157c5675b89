// SPDX-License-Identifier: Apache-2.0
// DLL_ROUT: ten (name, length) pairs, C calling convention.
#include "SampleListings.h"

#include <array>
#include <string>

namespace {

std::string nameOf(const char* buffer, const int* length) {
    std::string s(buffer, static_cast<size_t>(length ? *length : 0));
    while (!s.empty() && (s.back() == ' ' || s.back() == '\0'))
        s.pop_back(); // the caller pads with blanks
    return s;
}

} // namespace

extern "C" __attribute__((visibility("default"))) void
DLL_ROUT(char* input, int* inputLen, char* sif, int* sifLen, char* concrete, int* concreteLen, char* rebar,
         int* rebarLen, char* general, int* generalLen, char* bent, int* bentLen, char* elevation, int* elevationLen,
         char* beam, int* beamLen, char* pile, int* pileLen, char* quantities, int* quantitiesLen) {
    const std::array<std::string, 10> names = {nameOf(input, inputLen),         nameOf(sif, sifLen),
                                               nameOf(concrete, concreteLen),   nameOf(rebar, rebarLen),
                                               nameOf(general, generalLen),     nameOf(bent, bentLen),
                                               nameOf(elevation, elevationLen), nameOf(beam, beamLen),
                                               nameOf(pile, pileLen),           nameOf(quantities, quantitiesLen)};
    tw::sample::writeListings(names);
}
