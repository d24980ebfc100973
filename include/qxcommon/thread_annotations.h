#pragma once

/// Marks for Clang's thread safety analysis (-Wthread-safety); nothing for other compilers.
#if defined(__clang__)
#define QX_THREAD_ATTRIBUTE(x) __attribute__((x))
#else
#define QX_THREAD_ATTRIBUTE(x)
#endif

#define QX_CAPABILITY(name) QX_THREAD_ATTRIBUTE(capability(name))
#define QX_SCOPED_CAPABILITY QX_THREAD_ATTRIBUTE(scoped_lockable)
#define QX_ACQUIRE(...) QX_THREAD_ATTRIBUTE(acquire_capability(__VA_ARGS__))
#define QX_RELEASE(...) QX_THREAD_ATTRIBUTE(release_capability(__VA_ARGS__))
#define QX_REQUIRES(...) QX_THREAD_ATTRIBUTE(requires_capability(__VA_ARGS__))
#define QX_GUARDED_BY(lock) QX_THREAD_ATTRIBUTE(guarded_by(lock))
#define QX_NO_THREAD_ANALYSIS QX_THREAD_ATTRIBUTE(no_thread_safety_analysis)
