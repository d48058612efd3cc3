#pragma once

#include <string>
#include <string_view>

#include "api/ApiPmIds.h"
#include "api/ApiPmXmlCachedDocument.h"
#include "document/ZelXmlDom.h"

// A study lists shortcut objects in `children` and, at the same places, study info objects in `info`. A
// shortcut names its study (`parent`) and the object it shows (`linkExternalID`); a study info names the
// layout that places the object in the study. False ends an operation and leaves what it has done.

// A new study info object at the end of `info`; false, with nothing made, for a study of a class that has no
// study info class.
bool zelXmlCreateStudyInfo(const IXMLDOMDocument& document, const IXMLDOMNode& study, IXMLDOMNode& info);
bool zelXmlStudyInfoClassName(const IXMLDOMNode& study, std::string& className);
// A new shortcut object with study info and study layout; the shortcut itself is not yet in `children`, and
// names neither its study nor an object.
bool zelXmlCreateShortcut(const IXMLDOMDocument& document, const IXMLDOMDocument& out,
                          const IXMLDOMNode& study, std::string_view name, IXMLDOMNode& shortcut);
// A new study info and study layout at the unit placement; published.
bool zelXmlCreateShortcutInfo(const IXMLDOMDocument& document, const IXMLDOMDocument& out,
                              const IXMLDOMNode& study);

// The items of a shortcut in `children` and, at the same place, in `info`; and their removal.
bool zelXmlFindShortcutItems(const IXMLDOMNode& study, std::string_view shortcutId, IXMLDOMNode& infoItem,
                             IXMLDOMNode& childItem);
bool zelXmlRemoveShortcutItems(const IXMLDOMNode& study, const IXMLDOMNode& infoItem,
                               const IXMLDOMNode& childItem);
bool zelXmlGetStudyOfShortcut(const IXMLDOMDocument& document, const IXMLDOMNode& shortcut,
                              IXMLDOMNode& study);
bool zelXmlFindStudyInfo(const IXMLDOMDocument& document, const ApiPmId& shortcutId, IXMLDOMNode& info);
bool zelXmlGetShortcutStudyObjects(const IXMLDOMDocument& document, const ApiPmId& studyId,
                                   const ApiPmId& shortcutId, IXMLDOMNode& info, IXMLDOMNode& layout);

// Whether a shortcut shows an operation: by its id, as a study is filtered, and by its element, as content
// moves to a new study; the second knows fewer families.
bool zelXmlIsOperationShortcut(const IXMLDOMDocument& document, std::string_view shortcutId);
bool zelXmlIsOperationShortcutElement(const IXMLDOMNode& shortcut);

// Removes a shortcut with study info, study layout and both list items; not published. True also when info,
// layout or items are missing; without its study the shortcut stays, false. The second form removes those of
// operations and ends at the first that stays.
bool zelXmlRemoveShortcut(ApiPmXmlCachedDocument& cached, const IXMLDOMNode& shortcut);
bool zelXmlRemoveOperationShortcuts(ApiPmXmlCachedDocument& cached);
// The same with publication: three deletions, then the study.
bool zelXmlRemoveStudyShortcut(ApiPmXmlCachedDocument& cached, const IXMLDOMDocument& out,
                               const ApiPmId& studyId, const ApiPmId& shortcutId);

// Brings the lists of a copy of a study to equal length and takes the operation shortcuts out of it. Study
// info objects that are missing are made in `document` and published. Lists that cannot be brought into line
// are reported as "ZELXML_MISMATCH_IN_STUDY_SHORTCUTS_LISTS", false.
bool zelXmlFilterStudyShortcuts(const IXMLDOMDocument& document, const IXMLDOMNode& studyClone,
                                const IXMLDOMDocument& out);
// Publishes such a copy in place of the study.
bool zelXmlPublishFilteredStudy(const IXMLDOMDocument& document, const ApiPmId& studyId,
                                const IXMLDOMDocument& out);
