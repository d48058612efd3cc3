#include "zelstudy/SessionSettings.h"

#include <gtest/gtest.h>

#include "api/ApiPmSessionManager.h"

namespace {

using zelstudy::SessionSettings;

TEST(SessionSettings, EveryKeySetsItsMember) {
  auto& session = ApiPmSessionManager::the();
  const auto former =
      std::tuple(session.userName, session.projectId, session.projectInternalId, session.projectName,
                 session.rootNodeId, session.variantFilter, session.systemRoot, session.localDocument,
                 session.mode, session.modeField, session.deleteMode);
  SessionSettings settings;
  for (const char* setting :
       {"userName=first", "userName=Ada = Lovelace", "projectId=P1", "projectInternalId=-7",
        "projectName=", "rootNodeId=R", "variantFilter=+5", "systemRoot=/data/root", "localDocument=true",
        "mode=1", "modeField=2", "deleteMode=3"})
    EXPECT_EQ(settings.add(setting), "") << setting;
  session.projectName = "former";
  settings.apply(session);
  const auto set =
      std::tie(session.userName, session.projectId, session.projectInternalId, session.projectName,
               session.rootNodeId, session.variantFilter, session.systemRoot, session.localDocument,
               session.mode, session.modeField, session.deleteMode);
  EXPECT_EQ(set, std::tuple("Ada = Lovelace", ApiPmId("P1"), ApiPmInternalId(-7), "", "R", 5, "/data/root",
                            true, 1, 2, 3));

  SessionSettings one;
  EXPECT_EQ(one.add("localDocument=0"), "");
  one.apply(session);
  EXPECT_FALSE(session.localDocument);
  EXPECT_EQ(session.userName, "Ada = Lovelace");  // not given: stays
  ApiPmSessionManager::the().userName = std::get<0>(former);
  std::tie(session.userName, session.projectId, session.projectInternalId, session.projectName,
           session.rootNodeId, session.variantFilter, session.systemRoot, session.localDocument, session.mode,
           session.modeField, session.deleteMode) = former;
}

TEST(SessionSettings, WhatCannotBeTakenIsSaid) {
  const std::string keys = SessionSettings::keys();
  const struct {
    std::string_view setting;
    std::string reason;
  } cases[] = {
      {"mode", "\"mode\" is not KEY=VALUE"},
      {"=1", "unknown key \"\"; the keys are " + keys},
      {"Mode=1", "unknown key \"Mode\"; the keys are " + keys},
      {"mode=", "mode must be a whole number of 32 bits, not \"\""},
      {"mode=1.0", "mode must be a whole number of 32 bits, not \"1.0\""},
      {"mode=+-1", "mode must be a whole number of 32 bits, not \"+-1\""},
      {"variantFilter=2147483648", "variantFilter must be a whole number of 32 bits, not \"2147483648\""},
      {"localDocument=yes", "localDocument must be true or false, not \"yes\""},
  };
  for (const auto& [setting, reason] : cases) {
    SessionSettings settings;
    EXPECT_EQ(settings.add(setting), reason);
  }
}

}  // namespace
