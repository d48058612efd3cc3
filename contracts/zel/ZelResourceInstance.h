#pragma once

#include "api/ApiPmRobotFramesData.h"
#include "api/ApiTbmRoboticParam.h"
#include "rt/RTAutoPtr.h"
#include "rt/RTTran3D.h"
#include "rw/RWCollectionRef.h"
#include "zel/ZelNode.h"

// A tool, a robot, a device or a conveyor placed in a study: what it is mounted on and what the robot among
// them knows. Fields are those of the object's element; setters publish the object unless told otherwise.
class ZelResourceInstance : public ZelNode {
 public:
  using Frames = RWClassicTValOrderedVector<ApiPmRobotFramesData>;
  using RoboticParameters = RWClassicTValOrderedVector<const ApiTbmRoboticParam*>;
  static constexpr InterfaceType interfaceType = ResourceInstance;
  static ZelResourceInstance* queryZelResourceInstance(ZelNode* node) {
    return zelQuery<ZelResourceInstance>(node);
  }

  // Mounts tie two layout objects and move nothing. These four are false without a layout; global attachments
  // (ZelGlobalAttachment) are no mounts.
  //
  // Appends the ids of the objects mounted on this one, in the order of the list `mountedTools`; entries that
  // name no layout are left out. The mounted objects' own `mountedTo` is not looked at.
  virtual bool getMountedTools(ApiPmIdList& tools) const = 0;
  // What this one is mounted on, and its placement there: fields `mountedTo`, `mountLocation` and
  // `mountRotation` of the layout. False when it is mounted on nothing, and for a global attachment, whose
  // target and placement have been written by then.
  virtual bool getMountedTo(ApiPmId& target, RTTran3D& placement) const = 0;
  // Writes the placement of the mount, a global attachment's too, and publishes the layout. False without
  // its two lists, or with one of fewer than three items; what came before has been written then.
  virtual bool setMountLocation(const RTTran3D& placement) = 0;
  // Takes this one off `oldTarget` if that has a node, then mounts it on `newTarget`, or clears the mount
  // when that has no node. Publishes the layouts of both. False for an old target that does not list it, and
  // at the first step that fails; the steps before stand. With an `oldTarget` that is null or unknown the
  // former target keeps its entry.
  virtual bool setMount(const ApiPmId& oldTarget, const ApiPmId& newTarget, const RTTran3D& placement) = 0;
  // Field `plcInfo/robotSetupTime`, in seconds. Writing adds a field and publishes nothing; reading takes the
  // first.
  virtual bool setRobotSetupTime(double seconds) = 0;
  virtual bool getRobotSetupTime(double& seconds) const = 0;
  // Fields `Controller`, `ControllerVersion` and `rrsInformation/ManipulatorType`, made if need be.
  virtual bool getController(RWClassicWString& controller) const = 0;
  virtual bool getControllerVersion(RWClassicWString& version) const = 0;
  virtual bool getManipulatorType(RWClassicCString& type) const = 0;
  virtual bool setController(const RWClassicWString& controller) = 0;
  virtual bool setControllerVersion(const RWClassicWString& version) = 0;
  virtual bool setManipulatorType(const RWClassicCString& type) = 0;
  // Adds the frames behind those of `systemFrames`, placements to ten digits, and publishes the object per
  // frame. A frame with an attachment of no kind ends it with false: what it left, `id` and `name`, stays.
  virtual bool addSystemFrames(const Frames& frames) = 0;
  // Appends the frames in order, those of the older form too. One without a placement that can be read is
  // left out; one with a name and without `location` is a default record. Always true.
  virtual bool getSystemFrames(RWCollectionRef<ApiPmRobotFramesData> frames) const = 0;
  // Removes all frames; publishes the object also when there was none.
  virtual bool clearSystemFrames() = 0;
  // Adds the parameters behind those of `roboticParameters`, numbers to six decimals, and publishes the
  // object once at the end. A kind that ApiTbmRoboticParam does not name, and null, end it with false: the
  // ones before stay, unpublished. An `xml` value is copied.
  virtual bool addRoboticParameters(const RoboticParameters& parameters) = 0;
  // Appends the parameters in order; the caller owns them, `xml` values are copies. One of unknown type, one
  // without `id` and one without `value` end it with false.
  virtual bool getRoboticParameters(RWCollectionRef<RTAutoPtr<ApiTbmRoboticParam>> parameters) const = 0;
  // Removes all parameters; publishes the object also when there was none.
  virtual bool clearRoboticParameters() = 0;
};
