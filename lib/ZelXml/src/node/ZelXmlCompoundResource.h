#pragma once

#include "node/ZelXmlCompoundPart.h"

class ZelXmlCompoundResource final
    : public ZelXmlConcreteNode<ZelXmlCompoundResource, ZelXmlCompoundNode, ZEL_COMPOUND_RESOURCE,
                                ZelCompoundResource, ZelCompoundObject, ZelCollection, ZelPhysical,
                                ZelVorNode, ZelVorCollection, ZelVorCompoundResource, ZelVorLabelsContainer,
                                ZelGlobalAttachment> {};
