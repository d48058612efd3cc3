#include <CLI/CLI.hpp>
#include <csignal>
#include <iostream>

#include "OutputFile.h"
#include "StudyGenerator.h"

namespace {

/// What the shell sees when the arguments are wrong or the study could not be written.
constexpr int kFailure = 2;

}  // namespace

int main(int argc, char** argv) {
  // A reader that went away is a failed write like any other, not a silent death.
  std::signal(SIGPIPE, SIG_IGN);

  zelgen::StudyOptions options;
  std::string output = "-";
  CLI::App app("Writes a made-up manufacturing study of any size. Equal options give equal bytes.", "zelgen");
  app.add_option("-n,--objects", options.objects, "Object elements in the study")->required();
  app.add_option("-s,--seed", options.seed, "Start of the random numbers")->capture_default_str();
  app.add_option("-o,--output", output, "File to write; - is the standard output")->capture_default_str();
  app.add_option("--depth", options.depth, "Levels of the deepest tree")->capture_default_str();
  app.add_option("--shared", options.shared, "Per cent of the part leaves with a second parent")
      ->capture_default_str();
  app.add_option("--study-class", options.studyClass, "MarvekStudy or LineSimulationStudy")
      ->capture_default_str();
  app.add_flag("--pretty", options.pretty, "Indent, one line per element");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kFailure;
  }
  if (const auto reason = zelgen::whyRefused(options)) {
    std::cerr << "zelgen: " << *reason << '\n';
    return kFailure;
  }

  zelgen::OutputFile file(output);
  const bool written =
      zelgen::generateStudy(options, [&](std::string_view chunk) { return file.write(chunk); });
  if (!written || !file.commit()) {
    std::cerr << "zelgen: " << file.error() << '\n';
    return kFailure;
  }
  return 0;
}
