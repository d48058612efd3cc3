#pragma once

#include "api/ApiPmRobotFramesData.h"
#include "api/ApiPmRobotToolBoxData.h"
#include "api/ApiTbmRoboticParam.h"
#include "node/ZelXmlGlobalAttachmentService.h"
#include "node/ZelXmlInstanceNode.h"
#include "rt/RTAutoPtr.h"
#include "rw/RWCollectionRef.h"

// A placed resource: tool, robot, device or conveyor, by what its element holds. What a robot knows is told
// by the interfaces ZelResourceInstance, ZelVorResourceInstance and ZelTool, operation for operation.
class ZelXmlResInstanceBaseNode : public ZelXmlAttachableNode<ZelXmlInstanceNode> {
 public:
  // Called after a prototype, or a place as a tool, was given: from then on the resource takes PLC data, if
  // its class has any (ZelXmlPlcResourceNode).
  virtual void gainPlcSide() {}

  bool readSystemFrames(RWCollectionRef<ApiPmRobotFramesData> frames) const;
  bool appendSystemFrames(const RWClassicTValOrderedVector<ApiPmRobotFramesData>& frames);
  bool readRoboticParameters(RWCollectionRef<RTAutoPtr<ApiTbmRoboticParam>> parameters) const;
  bool appendRoboticParameters(const RWClassicTValOrderedVector<const ApiTbmRoboticParam*>& parameters);
  bool readToolbox(RWCollectionRef<ApiPmRobotToolBoxData> uses) const;
  bool appendToolbox(const RWClassicTValOrderedVector<ApiPmRobotToolBoxData>& uses);
  bool dropToolbox();
  // Removes a group of the element, if it is there, and publishes the object.
  bool dropGroup(std::string_view name);

  // What the object is a use of, by the first `masterObj`; false for an empty one and for "NULL".
  bool getMasterObj(ApiPmId& id) const;
  bool readOccurrenceChildId(ApiPmPrototypeChildId& id) const;
  // The occurrence of a child id in the prototype of the parent, an equipment.
  bool findOccurrence(const ApiPmPrototypeChildId& id, ApiPmId& occurrence) const;
};
