#include "zelstudy/SaveFiles.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <utility>

#include "zelstudy/Tool.h"

namespace zelstudy {

namespace fs = std::filesystem;

std::string inputName(const std::string& file) { return isStandard(file) ? "standard input" : file; }
std::string outputName(const std::string& file) { return isStandard(file) ? "standard output" : file; }

bool isSameFile(const std::string& a, const std::string& b) {
  std::error_code error;
  if (fs::equivalent(a, b, error)) return true;
  const fs::path first = fs::weakly_canonical(fs::absolute(a, error), error);
  const fs::path second = fs::weakly_canonical(fs::absolute(b, error), error);
  return !first.empty() && first == second;
}

bool spares(const std::string& option, const std::string& output, const std::string& other) {
  if (output.empty() || other.empty() || isStandard(output) || isStandard(other) ||
      !isSameFile(output, other))
    return true;
  say(option + " " + output + " would overwrite " + other);
  return false;
}

bool canReadBoth(const std::string& name, const std::string& file, const std::string& otherName,
                 const std::string& other) {
  if (!isStandard(file) || !isStandard(other)) return true;
  say(name + " and " + otherName + " cannot both be standard input");
  return false;
}

void addForce(CLI::App& command, bool& force) {
  command.add_flag("--force", force, "Save even over a file that was changed after it was read");
}

namespace {

// A document without an element cannot be read again: no commands are an empty Data.
IXMLDOMDocument withElement(const IXMLDOMDocument& changes) {
  if (!changes.documentElement()) {
    if (const IXMLDOMNode declaration = changes.createNode(NODE_PROCESSING_INSTRUCTION, "xml"))
      changes.appendChild(declaration);
    changes.appendChild(changes.createElement("Data"));
  }
  return changes;
}

void advise(DomError& error) {
  if (error.outdated) error.reason += "; nothing is saved: run the command again, or give --force";
}

void sayWarnings(const std::string& file, const DomSave& save) {
  for (const std::string& warning : save.warnings()) say(file + ": " + warning);
}

}  // namespace

Outputs::Outputs(std::string study, std::string changes, bool force)
    : study_(std::move(study)),
      changes_(std::move(changes)),
      overwrite_(force ? DomOverwrite::any : DomOverwrite::known),
      standardOutput_(isStandard(study_) || isStandard(changes_) ? std::cout.rdbuf(std::cerr.rdbuf())
                                                                 : nullptr) {}

Outputs::~Outputs() {
  if (standardOutput_) std::cout.rdbuf(standardOutput_);
}

bool Outputs::areApart() const {
  if (!isStandard(study_) || !isStandard(changes_)) return true;
  say("-o and --out cannot both be standard output");
  return false;
}

bool Outputs::writeStandard(const IXMLDOMDocument& document, DomError& error) const {
  std::ostream out(standardOutput_);
  if (document.save(out, &error)) return true;
  error.file = outputName("-");
  return false;
}

bool Outputs::refuse(DomError error) {
  advise(error);
  say(error.message());
  return false;
}

bool Outputs::save(const StudySession& study, const IXMLDOMDocument& changes) {
  DomError error;
  const bool toFiles[] = {!study_.empty() && !isStandard(study_), !changes_.empty() && !isStandard(changes_)};
  if (toFiles[1] && !changesSave_.prepare(withElement(changes), changes_))
    return refuse(changesSave_.error());
  if (toFiles[0] && !study.wrapper().prepareWrite(studySave_, study_, overwrite_))
    return refuse(studySave_.error());
  if (isStandard(study_)) {
    std::ostream out(standardOutput_);
    if (!study.wrapper().write(out)) {
      say(outputName(study_) + ": cannot be written; nothing is saved");
      return false;
    }
  }
  if (isStandard(changes_) && !writeStandard(withElement(changes), error)) return refuse(error);
  if (toFiles[0] && !studySave_.commit()) return refuse(studySave_.error());
  if (toFiles[0]) sayWarnings(study_, studySave_);
  if (toFiles[1] && !changesSave_.commit()) {
    error = changesSave_.error();
    if (const std::string kept = changesSave_.keep(); !kept.empty())
      error.reason += "; the change commands stand in " + kept;
    return refuse(error);
  }
  if (toFiles[1]) sayWarnings(changes_, changesSave_);
  return true;
}

bool Outputs::prepare(const IXMLDOMDocument& document, DomError& error) {
  standard_ = document;
  if (isStandard(study_) || studySave_.prepare(document, study_, overwrite_)) return true;
  error = studySave_.error();
  advise(error);
  return false;
}

bool Outputs::commit(DomError& error) {
  if (isStandard(study_)) return writeStandard(standard_, error);
  if (studySave_.commit()) {
    sayWarnings(study_, studySave_);
    return true;
  }
  error = studySave_.error();
  advise(error);
  return false;
}

}  // namespace zelstudy
