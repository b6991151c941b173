#pragma once

#include <string>

#include "programs/uses.h"
#include "store/project_store.h"

namespace tarvok::ctl {

// The commands that turn a project into wire images and back. Each returns the exit status; nothing is
// written where it fails.

/** Writes the section's image as raw bytes. */
int Encode(ProjectStore& store, const std::string& project, int section, int version,
           const std::string& file);
/** Writes every image that a send to the version carries as FOLDER/NN.bin; a missing folder is made. */
int EncodeAll(ProjectStore& store, const std::string& project, int version, const std::string& folder);
/** Decodes an image into a project as a load does; a missing or empty project is made. */
int Decode(ProjectStore& store, const std::string& image, int section, int version,
           const std::string& project);
/** Decodes the images FOLDER/NN.bin that are there, in the order in which a load asks for them. */
int DecodeAll(ProjectStore& store, const std::string& folder, int version, const std::string& project);

}  // namespace tarvok::ctl
