#pragma once

#include <ios>
#include <string>

#include "dom/DomSave.h"
#include "dom/IXMLDOMDocument.h"
#include "zelstudy/StudySession.h"

namespace CLI {
class App;
}

namespace zelstudy {

// "-" among the files of a command: standard input to read, standard output to write.
inline bool isStandard(const std::string& file) { return file == "-"; }
// As messages name it.
std::string inputName(const std::string& file);
std::string outputName(const std::string& file);

// Whether two paths name one file, be it there yet or not.
bool isSameFile(const std::string& a, const std::string& b);
// Whether an output is another file than `other`; with a message for people when it is not. `option` is how
// the output was given; an empty name is no file.
bool spares(const std::string& option, const std::string& output, const std::string& other);
// Whether at most one of two inputs is standard input; with a message when both are.
bool canReadBoth(const std::string& name, const std::string& file, const std::string& otherName,
                 const std::string& other);

// The files that a command saves in the end. Each is replaced whole or not at all, and together they are made
// ready before the first takes its place: so a false result, with a message for people, has changed none. The
// one exception is a rename that fails at the very end: the study is saved then, and the message says under
// which name the change commands stand.
//
// While an output is standard output, what the command prints there goes to standard error.
class Outputs {
 public:
  // Empty names are left out. `force` saves over a file that was changed after it was read.
  Outputs(std::string study, std::string changes, bool force);
  ~Outputs();
  Outputs(const Outputs&) = delete;
  Outputs& operator=(const Outputs&) = delete;

  // False, with a message, when both are to go to standard output.
  bool areApart() const;
  bool save(const StudySession& study, const IXMLDOMDocument& changes);
  // One document that is no study of the session, in two steps.
  bool prepare(const IXMLDOMDocument& document, DomError& error);
  bool commit(DomError& error);

 private:
  bool writeStandard(const IXMLDOMDocument& document, DomError& error) const;
  static bool refuse(DomError error);

  const std::string study_;
  const std::string changes_;
  const DomOverwrite overwrite_;
  DomSave studySave_, changesSave_;
  IXMLDOMDocument standard_;
  std::streambuf* const standardOutput_;
};

void addForce(CLI::App& command, bool& force);

}  // namespace zelstudy
