#pragma once

#include "document/ZelXmlField.h"
#include "node/ZelXmlNodeHost.h"

class ZelXmlElementNode;

// How the nodes inside `plcInfo` come to be. All answer the node, or null.

// On a new element, in a new holder below `parent`, beside holders of that name that are there. Null, with
// holder and element left behind, for a null id, an id that XML cannot hold and a type without text; only
// signals, controls, control calls and device sensors write their type. `made`, if given, is the new holder,
// also when the node could not be made.
ZelNode* createPlcSignal(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                         ZelNodeType type, const ApiPmId& id, IXMLDOMNode* made = nullptr);
ZelNode* createPlcControl(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                          ZelNodeType type, const ApiPmId& id);
ZelNode* createPlcControlCall(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                              ZelNodeType type, const ApiPmId& id);
ZelNode* createPlcSignalInstance(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                                 const ApiPmId& id);
ZelNode* createPlcPose(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                       const ApiPmId& id);
// The first element of the document that has the id is adopted anew, whatever it is, an object too; a holder
// is made only where there is none.
ZelNode* createPlcGroupPose(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                            const ApiPmId& id);
// Null, with nothing made, for any type but that of projectors.
ZelNode* createPlcProjector(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                            ZelNodeType type, const ApiPmId& id);
ZelNode* createPlcPropertySensor(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                                 const ApiPmId& id);
// The class by the type: device sensors of both types, distance sensors, proximity sensors. Null, with
// nothing made, for any other.
ZelNode* createPlcSensor(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                         ZelNodeType type, const ApiPmId& id);

// On an element that the document has. Null for an element without id. A node that had the id loses its
// entry.
ZelNode* adoptPlcSignal(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element);
ZelNode* adoptPlcControl(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element);
ZelNode* adoptPlcControlCall(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element);
ZelNode* adoptPlcSignalInstance(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element);
ZelNode* adoptPlcPose(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element);
ZelNode* adoptPlcGroupPose(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element);
// These three look at the name of the element, the last for the class; null for another name.
ZelNode* adoptPlcProjector(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element);
ZelNode* adoptPlcPropertySensor(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element);
ZelNode* adoptPlcSensor(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element);

// For those that own such nodes.

// A new signal in the holder, or the list of holders, that the row tells; where the row says so the group
// `plcInfo` is made for it, and the list where there is none.
ZelNode* zelXmlCreateSignal(ZelXmlElementNode& owner, const ZelField<ZelHeldId>& row, ZelNodeType type,
                            const ApiPmId& id);
ZelNode* zelXmlCreateSignal(ZelXmlElementNode& owner, const ZelField<ZelHeldIds>& row, ZelNodeType type,
                            const ApiPmId& id);
// Adopts the first element in the holder as a signal. True without one; false when it has no id.
bool zelXmlAdoptHeldSignal(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element,
                           const ZelField<ZelHeldId>& row);
// Adopts all elements that the path selects, in order, each with the nodes inside it. False at the first that
// cannot be adopted or answers false for what is inside it.
using ZelXmlAdopt = ZelNode* (*)(ZelXmlNodeHost*, const IXMLDOMNode&);
bool zelXmlAdoptAll(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element, std::string_view path,
                    ZelXmlAdopt adopt);
