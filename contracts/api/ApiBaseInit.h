#pragma once

// Set up what a process has once: the first the log and the files cache, the second the
// class types, the session with the indexes of its documents, and the services of the data store. Without
// these calls each is set up by its first use, which may be in the middle of a study. Further calls do
// nothing.
void apiBaseGmInit();
void apiBasePmInit();
