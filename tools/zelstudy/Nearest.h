#pragma once

#include <string_view>
#include <vector>

namespace zelstudy {

// The candidate that a word was most likely meant to be: the one with the fewest letters put in, left out,
// changed or swapped with their neighbour. Empty when none is near: a third of its letters may differ.
std::string_view nearest(std::string_view word, const std::vector<std::string_view>& candidates);

}  // namespace zelstudy
