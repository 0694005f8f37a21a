#pragma once

namespace platen {

/// The system's number for what failed last in this thread, errno or Windows' last error; 0 when
/// nothing did since it was cleared.
[[nodiscard]] int SystemError();
void SetSystemError(int error);
void ClearSystemError();

}  // namespace platen
