#pragma once

// What the library keeps of a thread goes with the thread.

/// The thread that calls ends.
void ForgetThisThread() noexcept;

/// The library goes. Threads that have not ended keep what they have, a kilobyte at most.
void ForgetAllThreads() noexcept;
