// KestApi.h: visibility of what the in-house libraries define; a caller compiled with hidden visibility finds
// it.
#pragma once

#if defined(_WIN32)
#define KEST_API
#else
#define KEST_API __attribute__((visibility("default")))
#endif
