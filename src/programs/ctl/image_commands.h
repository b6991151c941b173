#pragma once

#include <string>

#include "programs/uses.h"
#include "store/project_store.h"

namespace tarvok::ctl {

// The commands that convert a project to wire images and back. Each returns the exit status and writes
// nothing if it fails.

/** Writes the image of the section as raw bytes. */
int Encode(ProjectStore& store, const std::string& project, int section, int version,
           const std::string& file);
/**
 * Writes every image that a send to the version carries as FOLDER/NN.bin; creates the folder if necessary.
 */
int EncodeAll(ProjectStore& store, const std::string& project, int version, const std::string& folder);
/** Decodes an image into a project as a load does; creates the project if it is missing or empty. */
int Decode(ProjectStore& store, const std::string& image, int section, int version,
           const std::string& project);
/** Decodes the existing images FOLDER/NN.bin in the order in which a load requests them. */
int DecodeAll(ProjectStore& store, const std::string& folder, int version, const std::string& project);

}  // namespace tarvok::ctl
