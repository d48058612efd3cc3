#pragma once

// Sets the library up: fills the factories of nodes and wrappers and defines the library's messages. Call it
// once before the first wrapper is made; further calls do nothing.
void zelXmlInit();
