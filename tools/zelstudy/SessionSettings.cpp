#include "zelstudy/SessionSettings.h"

#include <optional>
#include <variant>

#include "api/ApiPmSessionManager.h"
#include "zelstudy/Numbers.h"

namespace zelstudy {

namespace {

using Session = ApiPmSessionManager;
using Member = std::variant<std::string Session::*, ApiPmId Session::*, ApiPmInternalId Session::*,
                            std::int32_t Session::*, bool Session::*>;
struct Key {
  std::string_view name;
  Member member;
};
const Key sessionKeys[] = {
    {"userName", &Session::userName},
    {"projectId", &Session::projectId},
    {"projectInternalId", &Session::projectInternalId},
    {"projectName", &Session::projectName},
    {"rootNodeId", &Session::rootNodeId},
    {"variantFilter", &Session::variantFilter},
    {"systemRoot", &Session::systemRoot},
    {"localDocument", &Session::localDocument},
    {"mode", &Session::mode},
    {"modeField", &Session::modeField},
    {"deleteMode", &Session::deleteMode},
};

bool read(std::string_view text, std::string& value) {
  value = text;
  return true;
}
bool read(std::string_view text, ApiPmId& value) {
  value = ApiPmId(text);
  return true;
}
bool read(std::string_view text, std::int32_t& value) { return readNumber(text, value); }
bool read(std::string_view text, ApiPmInternalId& value) { return readNumber(text, value.value); }
bool read(std::string_view text, bool& value) {
  const bool isTrue = text == "1" || text == "true";
  if (!isTrue && text != "0" && text != "false") return false;
  value = isTrue;
  return true;
}

std::string_view expected(const Member& member) {
  return std::holds_alternative<bool Session::*>(member) ? "true or false" : "a whole number of 32 bits";
}

}  // namespace

std::string SessionSettings::add(std::string_view setting) {
  const std::size_t equals = setting.find('=');
  if (equals == std::string_view::npos) return "\"" + std::string(setting) + "\" is not KEY=VALUE";
  const std::string_view name = setting.substr(0, equals), value = setting.substr(equals + 1);
  for (std::size_t key = 0; key < std::size(sessionKeys); ++key) {
    if (sessionKeys[key].name != name) continue;
    const bool reads = std::visit(
        [&]<class T>(T Session::*) {
          T trial{};
          return read(value, trial);
        },
        sessionKeys[key].member);
    if (!reads)
      return std::string(name) + " must be " + std::string(expected(sessionKeys[key].member)) + ", not \"" +
             std::string(value) + "\"";
    settings_.push_back({key, std::string(value)});
    return {};
  }
  return "unknown key \"" + std::string(name) + "\"; the keys are " + keys();
}

void SessionSettings::apply(ApiPmSessionManager& session) const {
  for (const Setting& setting : settings_)
    std::visit([&](auto member) { read(setting.value, session.*member); }, sessionKeys[setting.key].member);
}

std::string SessionSettings::keys() {
  std::string names;
  for (const Key& key : sessionKeys) names.append(names.empty() ? "" : ", ").append(key.name);
  return names;
}

}  // namespace zelstudy
