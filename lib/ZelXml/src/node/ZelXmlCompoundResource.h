#pragma once

#include "node/ZelXmlCompoundNode.h"

class ZelXmlCompoundResource final
    : public ZelXmlConcreteNode<ZelXmlCompoundResource, ZelXmlAttachableNode<ZelXmlCompoundNode>,
                                ZEL_COMPOUND_RESOURCE, ZelCompoundResource, ZelCompoundObject, ZelCollection,
                                ZelPhysical, ZelVorNode, ZelVorCollection, ZelVorCompoundResource,
                                ZelVorLabelsContainer, ZelGlobalAttachment> {};
