// The right to read and rewrite the wallet registry: taken in turns by the threads of this process, and by this program
// and the wallet application.
#pragma once

// Held from construction to destruction; waits without a time limit. A thread that holds it may take it again. When
// the lock file cannot be opened or locked, the threads of this process still take turns, and nobody is told.
class RegistryLock {
public:
    RegistryLock();
    RegistryLock(const RegistryLock&) = delete;
    RegistryLock& operator=(const RegistryLock&) = delete;
    ~RegistryLock();
};
