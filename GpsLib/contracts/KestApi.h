// KestApi.h: visibility of what the in-house libraries define; a caller compiled with hidden visibility finds
// it. KEST_API_DEFINED_HERE: in the stand-ins' own sources.
#pragma once

#if defined(_WIN32) && defined(KEST_API_DEFINED_HERE)
#define KEST_API __declspec(dllexport)
#elif defined(_WIN32)
#define KEST_API
#else
#define KEST_API __attribute__((visibility("default")))
#endif
