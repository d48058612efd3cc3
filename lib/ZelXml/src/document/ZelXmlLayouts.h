#pragma once

#include <string_view>

#include "document/ZelXmlDom.h"
#include "rt/RTTran3D.h"

// New layout objects. All end with false at the first step that fails; objects made by then stay.

// An element of class PmLayout or PmStudyLayout under a new id, with empty placement, `parent` "NULL", and
// `node` when it is made `withOwner`. The numbers are written by who makes it.
bool zelXmlCreateLayoutElement(const IXMLDOMDocument& document, std::string_view className,
                               const IXMLDOMNode& owner, IXMLDOMNode& layout, bool withOwner);
// A PmLayout of `owner` at `placement`, relative and absolute; published.
bool zelXmlCreateLayout(const IXMLDOMDocument& document, const IXMLDOMDocument& out, const IXMLDOMNode& owner,
                        const RTTran3D& placement);
// The same with the relative placement only; not published.
bool zelXmlCreateLocalLayout(const IXMLDOMDocument& document, const IXMLDOMNode& owner,
                             const RTTran3D& placement);
// A PmStudyLayout of a study info object; published.
bool zelXmlCreateStudyLayout(const IXMLDOMDocument& document, const IXMLDOMDocument& out,
                             const IXMLDOMNode& studyInfo, const RTTran3D& placement);
