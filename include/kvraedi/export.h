#pragma once

/// Everything that crosses the border of the shared library carries this mark: the ports, so that
/// an adapter can derive from them, and `Error`, so that it can be caught on either side.
#if defined(KVRAEDI_STATIC)
#define KVRAEDI_API
#elif defined(_WIN32)
#if defined(KVRAEDI_BUILDING)
#define KVRAEDI_API __declspec(dllexport)
#else
#define KVRAEDI_API __declspec(dllimport)
#endif
#else
#define KVRAEDI_API __attribute__((visibility("default")))
#endif
