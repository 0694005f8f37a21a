#pragma once

namespace platen {

/// Closes the file behind a handle, which leads nowhere from then on but stays one for the FILE_
/// functions. False without memory.
bool LetGo(void* file);

/// Makes a handle that let its file go lead to `other`, which is closed with it.
void Lead(void* file, void* other);

}  // namespace platen
