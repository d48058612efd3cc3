#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>

#include "ExternalGenerator.h"
#include "OutputFile.h"
#include "StudyGenerator.h"
#include "UpdateGenerator.h"

namespace {

/// What the shell sees when the arguments are wrong or the study could not be written.
constexpr int kFailure = 2;

int fail(const std::string& why) {
  std::cerr << "zelgen: " << why << '\n';
  return kFailure;
}

int writeStudy(const zelgen::StudyOptions& options, const std::string& output) {
  if (const auto reason = zelgen::whyRefused(options)) return fail(*reason);
  zelgen::OutputFile file(output);
  const bool written =
      zelgen::generateStudy(options, [&](std::string_view chunk) { return file.write(chunk); });
  return written && file.commit() ? 0 : fail(file.error());
}

/// `generate` writes what is made from a study: an update or an external document.
template <class Options, class Generate>
int writeFrom(const std::string& study, const Options& options, Generate generate,
              const std::string& output) {
  if (const auto reason = zelgen::whyRefused(options)) return fail(*reason);
  std::error_code ignored;
  if (output != "-" && study != "-" && std::filesystem::equivalent(study, output, ignored)) {
    return fail("-o " + output + " would overwrite the study");
  }
  const auto document = IXMLDOMDocument::create();
  DomError error;
  const bool isStandard = study == "-";
  if (!(isStandard ? document.load(std::cin, &error) : document.load(study, &error))) {
    if (isStandard) error.file = "standard input";
    return fail(error.message());
  }
  zelgen::OutputFile file(output);
  std::string reason;
  const bool written = generate(
      options, document, [&](std::string_view chunk) { return file.write(chunk); }, reason);
  if (!reason.empty()) return fail(study + ": " + reason);
  return written && file.commit() ? 0 : fail(file.error());
}

int run(int argc, char** argv) {
  zelgen::StudyOptions options;
  zelgen::UpdateOptions update;
  zelgen::ExternalOptions external;
  std::string output = "-";
  std::string study, externalStudy;
  CLI::App app(
      "Writes a made-up manufacturing study of any size, or an update or an external document for a study. "
      "Equal options give equal bytes.",
      "zelgen");
  app.set_version_flag("--version", "zelgen " ZELGEN_VERSION);
  // The conversion to an unsigned number would take -1 for the greatest one.
  const CLI::Validator unsignedNumber(
      [](std::string& text) { return text.starts_with('-') ? text + " is less than 0" : std::string(); }, "");
  CLI::Option* objects = app.add_option("-n,--objects", options.objects, "Object elements in the study");
  CLI::Option* updateOf =
      app.add_option("--update-of", study, "Write an update for this study instead; - is the standard input")
          ->type_name("STUDY")
          ->excludes(objects);
  CLI::Option* externalOf =
      app.add_option("--external-of", externalStudy,
                     "Write an external document for this study instead; - is the standard input")
          ->type_name("STUDY")
          ->excludes(objects)
          ->excludes(updateOf);
  app.add_option("-s,--seed", options.seed, "Start of the random numbers")->capture_default_str();
  app.add_option("-o,--output", output, "File to write; - is the standard output")->capture_default_str();
  app.add_option("--depth", options.depth, "Levels of the deepest tree")
      ->capture_default_str()
      ->excludes(updateOf)
      ->excludes(externalOf);
  app.add_option("--shared", options.shared, "Per cent of the part leaves with a second parent")
      ->capture_default_str()
      ->excludes(updateOf)
      ->excludes(externalOf);
  app.add_option("--study-class", options.studyClass, "MarvekStudy or LineSimulationStudy")
      ->capture_default_str()
      ->excludes(updateOf)
      ->excludes(externalOf);
  app.add_flag("--pretty", options.pretty, "Indent, one line per element")
      ->excludes(updateOf)
      ->excludes(externalOf);
  const auto addShare = [&](const char* name, std::uint32_t& percent, const char* what) {
    return app.add_option(name, percent, what)->type_name("PERCENT")->capture_default_str();
  };
  CLI::Option* added = addShare("--new", update.added, "Made from a study: new objects");
  CLI::Option* changed =
      addShare("--changed", update.changed, "Made from a study: objects with another name or comment");
  addShare("--moved", update.moved, "Of an update: objects under another compound")->needs(updateOf);
  addShare("--vanished", update.vanished, "Of an update: objects that are gone")->needs(updateOf);
  addShare("--unchanged", external.unchanged, "Of an external document: objects as the study has them")
      ->needs(externalOf);
  app.add_option("--class-changes", external.classChanges,
                 "Of an external document: objects that have another class there")
      ->type_name("N")
      ->capture_default_str()
      ->needs(externalOf);
  for (const char* name : {"--objects", "--seed", "--depth", "--shared", "--new", "--changed", "--moved",
                           "--vanished", "--unchanged", "--class-changes"})
    app.get_option(name)->check(unsignedNumber);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kFailure;
  }
  if (*updateOf) {
    update.seed = options.seed;
    return writeFrom(study, update, zelgen::generateUpdate, output);
  }
  if (*externalOf) {
    external.seed = options.seed;
    external.added = update.added;
    external.changed = update.changed;
    return writeFrom(externalStudy, external, zelgen::generateExternal, output);
  }
  if (*added || *changed) return fail("--new and --changed need --update-of or --external-of");
  if (!*objects) {
    return fail("give --objects N for a study, or --update-of or --external-of STUDY for what goes with one");
  }
  return writeStudy(options, output);
}

}  // namespace

int main(int argc, char** argv) {
  // A reader that went away is a failed write like any other, not a silent death.
  std::signal(SIGPIPE, SIG_IGN);
  zelgen::removeUnfinishedFileOnSignals();
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "zelgen: failed: %s\n", error.what());
    return kFailure;
  }
}
