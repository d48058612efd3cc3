#pragma once

#include "api/ApiPmRobotToolBoxData.h"
#include "rw/RWCollectionRef.h"
#include "zel/ZelNode.h"

// More of what a robot knows (see ZelResourceInstance): the tools it works with. A use of a tool is an object
// of its own, a `PmToolboxUsage` without node; the robot's list `usesTool` names its uses.
class ZelVorResourceInstance : public ZelNode {
 public:
  using Toolbox = RWClassicTValOrderedVector<ApiPmRobotToolBoxData>;
  static constexpr InterfaceType interfaceType = VorResourceInstance;
  static ZelVorResourceInstance* queryZelVorResourceInstance(ZelNode* node) {
    return zelQuery<ZelVorResourceInstance>(node);
  }

  // Field `rrsInformation/RobotPathName`, made if need be; publishes the object.
  virtual bool getRobotPathName(RWClassicCString& name) const = 0;
  virtual bool setRobotPathName(const RWClassicCString& name) = 0;
  // Appends the uses in the order of the list, each once. A use that is not there, and one without
  // `workToolTCPFPosition`, end it with false; other fields that are missing keep their defaults. No list is
  // true.
  virtual bool getToolboxData(RWCollectionRef<ApiPmRobotToolBoxData> uses) const = 0;
  // Publishes the deletion of the uses, takes the list away, and publishes the object, also without a list. A
  // use that is not there ends the first step: the list goes all the same, and it is false then, with no
  // update published.
  virtual bool clearToolboxData() = 0;
  // Makes the objects of the uses, lists them, and publishes each, then the robot. A usage id that is null,
  // "NULL" or in use ends it with false before anything is made for it; the uses before it stand.
  virtual bool addToolboxData(const Toolbox& uses) = 0;
  // Whether the data store asks for the object's changes: field `NodeInfo/needToPropagate`, true for any
  // number but 0.
  virtual bool getNeedToPropagate(bool& needed) const = 0;
};
