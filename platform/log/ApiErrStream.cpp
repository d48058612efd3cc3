#include "api/ApiErrStream.h"
#include "rw/RWTextHash.h"

#include <unordered_map>
#include <utility>

constinit ApiErrStream apiErr;

struct ApiErrStream::State {
  struct Definition {
    int severity;
    std::string text;
  };
  std::unordered_map<std::string, Definition, RWTextHash> definitions;
  ApiErrEntry entry;
  bool hasSeverity = false;
  Sink sink;
};

ApiErrStream::State& ApiErrStream::state() {
  if (!state_) state_ = new State;
  return *state_;
}

void ApiErrStream::addErrDefinition(std::string_view code, int severity, std::string_view text) {
  state().definitions.try_emplace(std::string(code), State::Definition{severity, std::string(text)});
}

std::string ApiErrStream::definitionText(std::string_view code) const {
  if (!state_) return {};
  const auto found = state_->definitions.find(std::string(code));
  return found == state_->definitions.end() ? std::string() : found->second.text;
}

ApiErrStream::Sink ApiErrStream::setSink(Sink sink) { return std::exchange(state().sink, std::move(sink)); }

ApiErrStream& ApiErrStream::operator<<(ApiErrCode code) {
  state().entry = ApiErrEntry();
  state().hasSeverity = false;
  state().entry.code = std::move(code.code);
  return *this;
}

ApiErrStream& ApiErrStream::operator<<(ApiErrPosition position) {
  ApiErrEntry& entry = state().entry;
  entry.file = std::move(position.file);
  entry.line = position.line;
  entry.function = std::move(position.function);
  return *this;
}

ApiErrStream& ApiErrStream::operator<<(std::string_view text) {
  state().entry.texts.emplace_back(text);
  return *this;
}

ApiErrStream& ApiErrStream::operator<<(ApiErrSeverity severity) {
  state().entry.severity = severity.severity;
  state().hasSeverity = true;
  return *this;
}

ApiErrStream& ApiErrStream::operator<<(ApiErrEnd) {
  // Taken out first, so that a sink may raise a message of its own.
  ApiErrEntry entry = std::exchange(state().entry, ApiErrEntry());
  const bool hasSeverity = std::exchange(state().hasSeverity, false);
  if (!hasSeverity) {
    const auto found = state().definitions.find(entry.code);
    if (found != state().definitions.end()) entry.severity = found->second.severity;
  }
  if (state().sink) state().sink(entry);
  return *this;
}
