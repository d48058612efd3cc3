#pragma once

#include <cstddef>

namespace dom {

// Memory for nodes and their texts. Sizes up to 256 bytes come from slabs of one size each, so a node costs
// its bytes and no header; what is larger goes to malloc. An empty slab is used again for any size, and
// memory whose slabs are all empty goes back to the system. Under AddressSanitizer all of it is plain malloc,
// so that every use after free shows. Not locked: see IXMLDOMNode.
//
// Throws std::bad_alloc.
void* poolAllocate(std::size_t bytes);
// `bytes` as it was asked for.
void poolFree(void* memory, std::size_t bytes) noexcept;
// Bytes of address space held for slabs; 0 under AddressSanitizer.
std::size_t poolHeld() noexcept;

}  // namespace dom
