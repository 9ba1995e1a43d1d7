#pragma once

#include <sys/stat.h>

namespace kelp::core::fs {

/// Gives the open file `to` the rights of the open file `from`, whose status is `old`: owner and
/// group where the system lets us, the mode, the access list. What cannot be kept makes the rights
/// narrower, never wider. False, with `errno`, when not even that is possible.
bool keep_access_rights(int from, const struct stat& old, int to);

/// Copies the attributes that users gave a file, as far as that is possible.
void keep_user_attributes(int from, int to);

}  // namespace kelp::core::fs
