#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

// Opens a study, builds its nodes, edits them as `edits` says (four bytes an edit), checks and saves it and
// opens it again. Answers what was wrong, or nothing; a file that is refused with a reason is nothing wrong.
// With `loses` the save loses an attribute.
std::string runStudy(std::string_view study, std::string_view edits, bool loses = false);

// One edit of an open study, of whatever node and kind the four numbers lead to; its answer is not looked at.
class OpenStudy;
void editAnyNode(OpenStudy& study, const std::uint8_t (&how)[4]);

// The study with some of its objects, attributes, lists, references and ids changed; now and then some bytes.
std::string mutateStudy(const std::string& study, std::mt19937_64& random);
std::string mutateBytes(std::string text, std::mt19937_64& random);

// Texts that an id, a name or a number may turn out to be.
const std::vector<std::string>& wildTexts();

}  // namespace fuzz
