#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "api/ApiErrStream.h"
#include "dom/IXMLDOMDocument.h"
#include "wrapper/ZelXmlWrapper.h"
#include "zelstudy/SessionSettings.h"

namespace zelstudy {

// One study, opened: its document stands in the session, its nodes in a wrapper. One at a time per process,
// since the session is the process's. Messages of the library are collected while the object lives.
class StudySession {
 public:
  StudySession();
  ~StudySession();
  StudySession(const StudySession&) = delete;
  StudySession& operator=(const StudySession&) = delete;

  // Opens a study, of "-" from standard input, with a session of mode 2 and what `settings` says. What a
  // study keeps of a session is read from it; a member that `settings` names stays as it was given. False,
  // with the reason in `error`, for a file that cannot be read and a document without Data/Objects.
  bool open(const std::string& fileName, const SessionSettings& settings, std::string& error);

  // False when a part of the study could not be built: nodes may be missing then, and the session data of the
  // study have not been read.
  bool builtWhole() const { return builtWhole_; }

  ZelXmlWrapper& wrapper() const { return *wrapper_; }
  const std::string& fileName() const { return fileName_; }
  ZelNode* find(const ApiPmId& id) const { return wrapper_->getZelNodeFromId(id); }
  // Whether an object or a node has this id.
  bool isInUse(const ApiPmId& id) const;
  // Object elements: children of all Data/Objects.
  std::size_t objectCount() const;
  // The element that an id names, null for one that names nothing.
  IXMLDOMNode elementOf(const ApiPmId& id) const;
  // Which element an id names, for messages: `class "id", line 12`, or `"id"` for one that names nothing.
  std::string describe(const ApiPmId& id) const;
  // Why an id has no node: it names nothing, or an object of a kind that has none.
  std::string whyNoNode(const ApiPmId& id) const;

  const std::vector<ApiErrEntry>& messages() const { return messages_; }

 private:
  std::unique_ptr<ZelWrapper> owned_;
  ZelXmlWrapper* wrapper_ = nullptr;
  std::string fileName_;
  bool builtWhole_ = false;
  std::vector<ApiErrEntry> messages_;
  ApiErrStream::Sink formerSink_;
};

// Reads the document of a study ("-" is standard input), or of another `kind` that holds objects, without a
// session. False, with a message for people, for a file that cannot be read and a document without
// Data/Objects.
bool loadStudy(const std::string& fileName, IXMLDOMDocument& document, std::string_view kind = "study");

// Opens a study for a command, with messages for people: why it could not be opened, and how many messages
// came up. False: the command ends with exitFailure.
bool openStudy(StudySession& study, const std::string& fileName, const SessionSettings& settings);

}  // namespace zelstudy
