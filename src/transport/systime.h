#pragma once

#include <cstddef>
#include <cstdint>

uint64_t getsystimeUS();
uint64_t getsystimeMS();
void delayUS(uint64_t us);
void delayMS(uint64_t ms);
long getuptimeS();
// Writes "YYYY-MM-DD hh:mm:ss.mmm" (UTC when `utc` is non-zero); `n` >= 24.
int get_current_time_str(char* dst, size_t n, int utc);
