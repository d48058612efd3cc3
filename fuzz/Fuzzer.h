#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// What libFuzzer calls, and PlainMain.cpp where there is no libFuzzer.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
// Changes the first `size` bytes, of room for `most`, and answers how many there are then.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed);
