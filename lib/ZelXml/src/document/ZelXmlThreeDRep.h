#pragma once

#include <string>
#include <string_view>

#include "document/ZelXmlDom.h"

// 3D representations: an object names a Pm3DRep object (`threeDRep`), that a PmReferenceFile object (`file`),
// and that a stored file name (`fileName`). A stored name that begins with "#" is relative to the session's
// system root; any other stands as it is.

// False for the empty name.
bool zelXmlResolveFileName(std::string_view stored, std::string& resolved);
// The inverse: relative for a path below the system root, compared without regard to letter case; without a
// root, for what a relative name resolves to then, a path that begins with one "\\". Always true.
bool zelXmlMakeRootRelative(std::string_view path, std::string& stored);
// The origin of a local copy of the files cache; the path itself otherwise.
bool zelXmlSourcePathForFile(std::string_view path, std::string& source);

bool zelXmlGetReferenceFileElement(const IXMLDOMDocument& document, const IXMLDOMNode& rep,
                                   IXMLDOMNode& element);
bool zelXmlGetReferenceFileName(const IXMLDOMDocument& document, const IXMLDOMNode& rep, std::string& text);
bool zelXmlSetReferenceFileName(const IXMLDOMDocument& document, const IXMLDOMNode& rep,
                                std::string_view name);

// Path of a representation, through the files cache when it is active: then the local copy, and whether it
// could be had.
bool zelXmlGetThreeDRepPath(const IXMLDOMDocument& document, const IXMLDOMNode& rep, std::string& path);
bool zelXmlSetThreeDRepPath(const IXMLDOMDocument& document, const IXMLDOMNode& rep, std::string_view path);
// A new pair of file object and representation object, with an empty file name. Objects made before a failing
// step stay.
bool zelXmlCreateThreeDRep(const IXMLDOMDocument& document, IXMLDOMNode& rep);
