#pragma once

#include "node/ZelXmlConcreteNode.h"
#include "node/ZelXmlInstanceNode.h"

class ZelXmlPartInstance final
    : public ZelXmlConcreteNode<ZelXmlPartInstance, ZelXmlAttachableNode<ZelXmlInstanceNode>,
                                ZEL_PART_INSTANCE, ZelPhysical, ZelInstance, ZelVorNode,
                                ZelVorLabelsContainer, ZelVorInstance, ZelGlobalAttachment> {};
