#pragma once

#include <string_view>

#include "document/ZelXmlDom.h"
#include "rt/RTTran3D.h"

// Transformations in a document: the six numbers x, y, z, roll, pitch, yaw, never a matrix. Lengths in the
// unit of the document, angles in radians. A document holds finite numbers only: a writer that is given
// another one answers false with nothing changed.
bool zelXmlIsFinite(const RTTran3D& transform);

// Up to three entries of a list; an empty list is true and leaves `vector` alone. Writing fills existing
// entries in order; true when the list cannot be selected, false when it has fewer than three.
bool zelXmlGetVec3(const IXMLDOMNode& element, std::string_view listPath, RTVec3D& vector);
bool zelXmlSetVec3(const IXMLDOMNode& element, std::string_view listPath, const RTVec3D& vector);
bool zelXmlGetTransformPaths(const IXMLDOMNode& element, std::string_view locationPath,
                             std::string_view rotationPath, RTTran3D& transform);
bool zelXmlSetTransformPaths(const IXMLDOMNode& element, std::string_view locationPath,
                             std::string_view rotationPath, const RTTran3D& transform);

// A field with `location` and `rotation`, or with `location` only. An absent field is false. Lists that are
// missing in it count as zeros in a transformation, and leave a translation alone.
bool zelXmlGetTransform(const IXMLDOMNode& element, std::string_view field, RTTran3D& transform);
bool zelXmlAddTransform(const IXMLDOMNode& element, std::string_view field, const RTTran3D& transform);
bool zelXmlGetTranslation(const IXMLDOMNode& element, std::string_view field, RTVec3D& translation);
bool zelXmlAddTranslation(const IXMLDOMNode& element, std::string_view field, const RTVec3D& translation);
// Appends a child of this name with three empty items.
bool zelXmlAddVec3List(const IXMLDOMNode& element, std::string_view name, IXMLDOMNode& list);

// Placement of a layout object in its parent: `location` and `rotation`.
bool zelXmlGetLayoutTransform(const IXMLDOMNode& layout, RTTran3D& transform);
bool zelXmlSetLayoutTransform(const IXMLDOMNode& layout, const RTTran3D& transform);

// Placement of a layout object in the study: NodeInfo/absoluteLocation with x, y, z, rx, ry, rz. Reading is
// false when any of the six is missing; writing stops at the first that is missing and makes nothing.
bool zelXmlGetAbsoluteLocation(const IXMLDOMNode& layout, RTTran3D& transform);
bool zelXmlSetAbsoluteLocation(const IXMLDOMNode& layout, const RTTran3D& transform);

// relative = relative * delta and absolute = absolute * delta, and the absolute placement of every layout
// below follows. Nothing happens for a delta that is the unit within rounding. False, and nothing changed,
// when a placement here or below would not be finite; on a layout without absolute placement false with the
// relative placement changed.
bool zelXmlMoveLayout(const IXMLDOMDocument& document, const IXMLDOMNode& layout, const RTTran3D& delta);
// Sets both placements of a layout, and the absolute placements below as zelXmlPropagateAbsoluteLocation.
bool zelXmlPlaceLayout(const IXMLDOMDocument& document, const IXMLDOMNode& layout, const RTTran3D& relative,
                       const RTTran3D& absolute);
// Sets the absolute placement of a layout and of all below it. Children that are missing, or have no readable
// placement, are passed over. False with nothing changed when a placement would not be finite, else at the
// first layout that cannot be written. A layout that stands below itself is written once; one that several
// layouts list is placed by the last of them.
bool zelXmlPropagateAbsoluteLocation(const IXMLDOMDocument& document, const IXMLDOMNode& layout,
                                     const RTTran3D& absolute);
// Whether the placements of a layout and of all below it would be finite there.
bool zelXmlCanPropagateAbsoluteLocation(const IXMLDOMDocument& document, const IXMLDOMNode& layout,
                                        const RTTran3D& absolute);
// inverse(absolute of `base`) * absolute of `layout`.
bool zelXmlGetRelativeTransform(const IXMLDOMNode& layout, const IXMLDOMNode& base, RTTran3D& transform);
