#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// One message of the error stream.
struct ApiErrEntry {
  std::string code;
  std::string file;  // where in the source it was raised
  int line = 0;
  std::string function;
  std::vector<std::string> texts;
  int severity = 0;
};

// The global error stream: it takes messages, hands each to the sink and never stops anything. Without a sink
// it forgets them; it prints nothing itself.
//
//   apiErr << ApiErrCode("CODE") << ApiErrPosition{__FILE__, __LINE__, "Class::operation"} << "text" <<
//   endErr;
struct ApiErrCode {
  std::string code;
  explicit ApiErrCode(std::string_view text) : code(text) {}
};
struct ApiErrPosition {
  std::string file;
  int line = 0;
  std::string function;
};
struct ApiErrSeverity {
  int severity = 0;
};
struct ApiErrEnd {};
inline constexpr ApiErrEnd endErr{};

class ApiErrStream {
 public:
  using Sink = std::function<void(const ApiErrEntry&)>;

  // It can be used before any dynamic initialisation and after all: what it holds is made at first use and
  // never destroyed.
  constexpr ApiErrStream() noexcept = default;
  ApiErrStream(const ApiErrStream&) = delete;
  ApiErrStream& operator=(const ApiErrStream&) = delete;

  // Severity and text of a code; the severity holds for entries that name none. A second definition of a code
  // is ignored.
  void addErrDefinition(std::string_view code, int severity, std::string_view text);
  // Empty for a code that is not defined.
  std::string definitionText(std::string_view code) const;
  // The sink gets every finished entry. Returns the former one.
  Sink setSink(Sink sink);

  ApiErrStream& operator<<(ApiErrCode code);
  ApiErrStream& operator<<(ApiErrPosition position);
  ApiErrStream& operator<<(std::string_view text);
  ApiErrStream& operator<<(ApiErrSeverity severity);
  ApiErrStream& operator<<(ApiErrEnd);

 private:
  struct State;
  State& state();

  State* state_ = nullptr;
};

extern constinit ApiErrStream apiErr;
