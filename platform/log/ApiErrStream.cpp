#include "api/ApiErrStream.h"

#include <utility>

// Never destroyed: messages may come while statics go.
ApiErrStream& apiErr = *new ApiErrStream;

void ApiErrStream::addErrDefinition(std::string_view code, int severity, std::string_view text) {
  definitions_.try_emplace(std::string(code), Definition{severity, std::string(text)});
}

std::string ApiErrStream::definitionText(std::string_view code) const {
  const auto found = definitions_.find(std::string(code));
  return found == definitions_.end() ? std::string() : found->second.text;
}

ApiErrStream::Sink ApiErrStream::setSink(Sink sink) { return std::exchange(sink_, std::move(sink)); }

ApiErrStream& ApiErrStream::operator<<(ApiErrCode code) {
  entry_ = ApiErrEntry();
  hasSeverity_ = false;
  entry_.code = std::move(code.code);
  return *this;
}

ApiErrStream& ApiErrStream::operator<<(ApiErrPosition position) {
  entry_.file = std::move(position.file);
  entry_.line = position.line;
  entry_.function = std::move(position.function);
  return *this;
}

ApiErrStream& ApiErrStream::operator<<(std::string_view text) {
  entry_.texts.emplace_back(text);
  return *this;
}

ApiErrStream& ApiErrStream::operator<<(ApiErrSeverity severity) {
  entry_.severity = severity.severity;
  hasSeverity_ = true;
  return *this;
}

ApiErrStream& ApiErrStream::operator<<(ApiErrEnd) {
  // Taken out first, so that a sink may raise a message of its own.
  ApiErrEntry entry = std::exchange(entry_, ApiErrEntry());
  const bool hasSeverity = std::exchange(hasSeverity_, false);
  if (!hasSeverity) {
    const auto found = definitions_.find(entry.code);
    if (found != definitions_.end()) entry.severity = found->second.severity;
  }
  if (sink_) sink_(entry);
  return *this;
}
