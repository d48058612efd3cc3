#pragma once

#include <string>
#include <string_view>
#include <vector>

class ApiPmSessionManager;

namespace zelstudy {

// Members of the session as the user gave them, KEY=VALUE.
class SessionSettings {
 public:
  // Takes one setting. Answers why it cannot be taken: no "=", an unknown key, a value that does not read.
  // Empty when it was taken. A later setting of a key counts.
  std::string add(std::string_view setting);

  // Sets the members that were given; the others stay.
  void apply(ApiPmSessionManager& session) const;

  // All keys, for the help.
  static std::string keys();

 private:
  struct Setting {
    std::size_t key;  // row of the table
    std::string value;
  };
  std::vector<Setting> settings_;
};

}  // namespace zelstudy
