#pragma once

#include <string>
#include <string_view>

// A file name taken apart. Both "\" and "/" part directories, whatever the host's separator, so that a study
// written on one system opens on the other; texts come out with the separators that went in.
class ApiSysFileName {
 public:
  explicit ApiSysFileName(std::string_view text) : text_(text) {}

  // The name; with `asDirectory` it ends in a separator.
  std::string asString(bool asDirectory) const;
  // The part behind the last separator.
  std::string fileName() const;
  // The longest directory that both names have in common, compared without regard to the letter case of
  // ASCII and to the kind of separator; in the spelling of this name. Empty when there is none.
  ApiSysFileName commonDir(const ApiSysFileName& other) const;
  // This name without the leading directory `base`; the whole name when it does not lie below it.
  ApiSysFileName relative(const ApiSysFileName& base) const;

 private:
  std::string text_;
};
