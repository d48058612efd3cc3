#pragma once

#include "document/ZelXmlPlcFieldRows.h"
#include "node/ZelXmlNodeHost.h"
#include "zel/ZelPlcRobotInstance.h"

// What a controller knows of a resource: the fields of its group `plcInfo`, which is the second argument
// everywhere. Values are read and written by their rows (zelPlcResourceFields); here stands what is not
// plain. False or null without wrapper and without group.

// A new signal in a new holder; in a list, which is made where there is none, the holder is a new item.
ZelNode* zelXmlCreatePlcResourceSignal(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info,
                                       const ZelField<ZelHeldId>& row, ZelNodeType type, const ApiPmId& id);
ZelNode* zelXmlCreatePlcResourceSignal(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info,
                                       const ZelField<ZelHeldIds>& row, ZelNodeType type, const ApiPmId& id);
// The same with the number of a conveyor and, unless that is null, the conveyor: both are written into the
// new item also when the signal could not be made.
ZelNode* zelXmlCreatePlcConveyorSignal(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info,
                                       const ZelField<ZelHeldIds>& row, ZelNodeType type, std::int16_t number,
                                       const ApiPmId& conveyor, const ApiPmId& id);
ZelNode* zelXmlCreatePlcResourceSensor(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info, ZelNodeType type,
                                       const ApiPmId& id);
ZelNode* zelXmlCreatePlcResourcePose(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info, const ApiPmId& id);

// Appends the ids of a list of signals, each once.
bool zelXmlGetPlcSignals(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info, const ZelField<ZelHeldIds>& row,
                         ApiPmIdList& ids);
// As ZelPlcRobotInstance tells; `conveyors` gets four ids.
bool zelXmlGetPlcConveyorSignals(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info,
                                 const ZelField<ZelHeldIds>& row,
                                 ZelPlcRobotInstance::ConveyorNumbers& numbers, ApiPmIdList& conveyors);
// As ZelPlcDeviceInstance tells.
bool zelXmlSetPlcTrackingRobots(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info, const ApiPmIdList& robots);
bool zelXmlGetPlcTrackingRobots(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info, ApiPmIdList& robots);

// The nodes of all that the group holds: sensors and poses with what is inside them, then signals. Up to the
// first that cannot be made: false then. True without group.
bool zelXmlCreatePlcResourceNodes(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info);
// Deletes them. True also for lists that cannot be read to their end.
bool zelXmlRemovePlcResourceNodes(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info);
