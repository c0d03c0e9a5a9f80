/*
 * BUILT_WITH_SANITIZER: AddressSanitizer or ThreadSanitizer is in this build, with an allocator and
 * with stack frames of its own.
 */
#ifndef ROSETAG_TESTS_SUPPORT_SANITIZERS_H
#define ROSETAG_TESTS_SUPPORT_SANITIZERS_H

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define BUILT_WITH_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define BUILT_WITH_SANITIZER 1
#endif
#endif

#ifndef BUILT_WITH_SANITIZER
#define BUILT_WITH_SANITIZER 0
#endif

#endif
