// Symbol visibility of the public interface.
#ifndef ZRDRAW_EXPORT_H
#define ZRDRAW_EXPORT_H

#define ZR_EXPORT __attribute__((visibility("default")))

#ifdef __cplusplus
#define ZR_EXTERN_C extern "C"
#define ZR_EXTERN_C_BEGIN extern "C" {
#define ZR_EXTERN_C_END }
#else
#define ZR_EXTERN_C
#define ZR_EXTERN_C_BEGIN
#define ZR_EXTERN_C_END
#endif

// A plain C entry point of the library.
#define ZR_API ZR_EXTERN_C ZR_EXPORT

#endif
