#include "zelstudy/EditRun.h"

#include <unistd.h>

#include <optional>

#include "zelstudy/Progress.h"

namespace zelstudy {

EditOutcome runEdits(StudySession& study, const std::vector<ScriptOperation>& operations, bool keepGoing,
                     std::ostream& out) {
  EditOutcome outcome;
  std::optional<Progress> progress;
  // The lines themselves are progress enough when they come to the terminal.
  if (!isatty(STDOUT_FILENO)) progress.emplace("editing", operations.size());
  for (const ScriptOperation& step : operations) {
    const std::size_t formerMessages = study.messages().size();
    const EditResult result = step.operation->run(study, step.arguments);
    Json line = {{"line", step.line}, {"op", step.operation->name}, {"result", result.result}};
    line.update(result.gave);
    if (!result.result) line["reason"] = result.reason;
    if (study.messages().size() > formerMessages)
      line["messages"] = messagesJson(study.messages(), formerMessages);
    out << jsonText(line) << '\n';
    if (progress) progress->advance();
    if (result.result) {
      ++outcome.done;
      continue;
    }
    if (outcome.refused++ == 0) {
      outcome.refusedLine = step.line;
      outcome.refusedReason = result.reason;
    }
    if (!keepGoing) break;
  }
  return outcome;
}

}  // namespace zelstudy
