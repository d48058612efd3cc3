#pragma once

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "Folder.h"

// Runs of the built program on files that a test writes.
namespace tool_test {

using files_test::Folder;

// What one run of the program gave.
struct Outcome {
  int exitCode = -1;  // -1 for a run that a signal ended
  std::string out;
  std::string err;

  nlohmann::json json() const { return nlohmann::json::parse(out); }
  // One value per line.
  std::vector<nlohmann::json> lines() const {
    std::vector<nlohmann::json> values;
    std::istringstream text(out);
    for (std::string line; std::getline(text, line);) values.push_back(nlohmann::json::parse(line));
    return values;
  }
};

// Runs a program with these arguments. `stackKiB` limits its stack; 0 leaves it alone.
inline Outcome runProgram(const char* program, std::vector<std::string> arguments,
                          std::string_view input = {}, unsigned stackKiB = 0) {
  const Folder files;
  files.write("in", input);
  arguments.insert(arguments.begin(), program);
  std::vector<char*> words;
  for (std::string& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);
  const std::string in = files.path("in"), out = files.path("out"), err = files.path("err");

  const pid_t child = ::fork();
  if (child == 0) {
    ::dup2(::open(in.c_str(), O_RDONLY), 0);
    ::dup2(::open(out.c_str(), O_WRONLY | O_CREAT, 0600), 1);
    ::dup2(::open(err.c_str(), O_WRONLY | O_CREAT, 0600), 2);
    if (stackKiB) {
      const rlimit limit{stackKiB * 1024, stackKiB * 1024};
      ::setrlimit(RLIMIT_STACK, &limit);
    }
    ::execv(words[0], words.data());
    ::_exit(127);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, files.read("out"), files.read("err")};
}

inline Outcome run(std::vector<std::string> arguments, std::string_view input = {}, unsigned stackKiB = 0) {
  return runProgram(ZELSTUDY_PROGRAM, std::move(arguments), input, stackKiB);
}

// A study with a shortcut to the compound part "A" at (10, 20, 30), in it the part "B" at (1, 2, 3), and
// beside it the compound resource "C" with the label "L". Its session data are complete: a save adds nothing
// to them.
inline constexpr std::string_view smallStudy = R"(<?xml version="1.0" encoding="UTF-8"?>
<Data>
  <Objects>
    <MarvekStudy ExternalId="S"><name>Line 1</name><children><item>SA</item></children><info><item>IA</item></info><NodeInfo><family>Study</family></NodeInfo></MarvekStudy>
    <PmShortcut ExternalId="SA"><name>Body</name><parent>S</parent><linkExternalID>A</linkExternalID><NodeInfo><family>Shortcut</family></NodeInfo></PmShortcut>
    <MarvekStudyInfo ExternalId="IA"><layout>LSA</layout><NodeInfo><family>MarvekStudyInfo</family></NodeInfo></MarvekStudyInfo>
    <PmStudyLayout ExternalId="LSA"><location><item>10.000000</item><item>20.000000</item><item>30.000000</item></location><rotation><item>0.000000</item><item>0.000000</item><item>0.000000</item></rotation><children/><parent>NULL</parent><NodeInfo><family>PmStudyLayout</family></NodeInfo></PmStudyLayout>
    <PmCompoundPart ExternalId="A"><name>Body</name><comment>Painted "white" &amp; dry</comment><caption>Main body</caption><parents/><children><item>B</item></children><layout>LA</layout><NodeInfo><family>Product</family></NodeInfo></PmCompoundPart>
    <PmLayout ExternalId="LA"><location><item>10.000000</item><item>20.000000</item><item>30.000000</item></location><rotation><item>0.000000</item><item>0.000000</item><item>0.000000</item></rotation><children><item>LB</item></children><parent>NULL</parent><node>A</node><NodeInfo><family>PmLayout</family><absoluteLocation><x>10.000000</x><y>20.000000</y><z>30.000000</z><rx>0.000000</rx><ry>0.000000</ry><rz>0.000000</rz></absoluteLocation></NodeInfo></PmLayout>
    <PmPartInstance ExternalId="B"><name>Türgriff</name><parents><item>A</item></parents><layout>LB</layout><prototype/><NodeInfo><family>Product</family></NodeInfo></PmPartInstance>
    <PmLayout ExternalId="LB"><location><item>1.000000</item><item>2.000000</item><item>3.000000</item></location><rotation><item>0.000000</item><item>0.000000</item><item>0.500000</item></rotation><children/><parent>LA</parent><node>B</node><NodeInfo><family>PmLayout</family><absoluteLocation><x>11.000000</x><y>22.000000</y><z>33.000000</z><rx>0.000000</rx><ry>0.000000</ry><rz>0.500000</rz></absoluteLocation></NodeInfo></PmLayout>
    <PmCompoundResource ExternalId="C"><parents/><children/><labels><item>L</item></labels><NodeInfo><family>Resource</family></NodeInfo></PmCompoundResource>
    <Label ExternalId="L"><name>Mind the gap</name><NodeInfo><family>Label</family></NodeInfo></Label>
  </Objects>
  <SessionMgrData><UserName>ada</UserName><ProjectId>P1</ProjectId><ProjectInternalId>5</ProjectInternalId><RootNodeId>R</RootNodeId><VariantFilter>0</VariantFilter><ProjectName>Line</ProjectName></SessionMgrData>
</Data>
)";

// A test of its own folder with the study above in it.
class StudyTest : public testing::Test {
 protected:
  const Folder folder;
  const std::string file = folder.write("small.xml", smallStudy);
};

// `text` with the one occurrence of `from` replaced; empty when there is not exactly one, so that a test that
// expects something fails.
inline std::string replaced(std::string_view text, std::string_view from, std::string_view to) {
  const std::size_t at = text.find(from);
  if (at == std::string_view::npos || text.find(from, at + 1) != std::string_view::npos) return {};
  return std::string(text.substr(0, at)) + std::string(to) + std::string(text.substr(at + from.size()));
}
using Replacements = std::vector<std::pair<std::string, std::string>>;
inline std::string replaced(std::string_view text, const Replacements& replacements) {
  std::string result(text);
  for (const auto& [from, to] : replacements) result = replaced(result, from, to);
  return result;
}

}  // namespace tool_test
