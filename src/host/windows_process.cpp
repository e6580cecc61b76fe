// SPDX-License-Identifier: MIT
#include "host/process.h"

#include <windows.h>

namespace zor {

std::int32_t ownProcess() {
    return static_cast<std::int32_t>(::GetCurrentProcessId());
}

bool processRuns(std::int32_t process) {
    if (process <= 0) {
        return false;
    }
    HANDLE opened = ::OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(process));
    if (opened == nullptr) {
        // One of another user's may not be opened, and runs all the same.
        return ::GetLastError() == ERROR_ACCESS_DENIED;
    }
    bool runs = ::WaitForSingleObject(opened, 0) == WAIT_TIMEOUT;
    ::CloseHandle(opened);
    return runs;
}

} // namespace zor
