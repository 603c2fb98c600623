/* SPDX-License-Identifier: MIT */
#pragma once

/*
 * NolvexLibWx for hosts in other languages: plain C, without wxWidgets in sight.
 *
 * Texts are UTF-8 and end with a zero. Functions that can fail return a NolvexStatus; nolvexLastError() then
 * tells why, in a sentence for the user. No exception leaves a function. Handles are opaque, belong to the
 * caller, and are given back by the function that their type names; null may be given back, too. Results are
 * written only with NOLVEX_OK.
 *
 * Windows of other toolkits are passed as HWND or GtkWidget* (of a top-level window), or null.
 */

#include "NolvexLibWx/Export.h"

#include <stddef.h> /* NOLINT(modernize-deprecated-headers): C */
#include <stdint.h> /* NOLINT(modernize-deprecated-headers): C */

#ifdef __cplusplus
extern "C" {
#endif

typedef enum NolvexStatus
{
    NOLVEX_OK = 0,
    NOLVEX_FAILED = 1,
    /* The user has given up. */
    NOLVEX_CANCELLED = 2,
    /* The time limit was reached. */
    NOLVEX_TIMEOUT = 3
} NolvexStatus;

/* The version of the library that is loaded, such as "0.1.0". */
NOLVEXLIBWX_EXPORT const char* nolvexVersion(void);

/* Why the last function on this thread that failed has failed. Empty if none has. Valid until the next
   failure on this thread. */
NOLVEXLIBWX_EXPORT const char* nolvexLastError(void);

/* Gives a text back that a function has made. */
NOLVEXLIBWX_EXPORT void nolvexFreeText(char* text);

/* ---- Start and stop, on the main thread ---- */

typedef enum NolvexApplicationType
{
    NOLVEX_APPLICATION = 0,
    NOLVEX_PLUGIN = 1,
    NOLVEX_HOST_INITIALISED = 2
} NolvexApplicationType;

/* Counted: each successful start needs a stop. Fails without a display. */
NOLVEXLIBWX_EXPORT NolvexStatus nolvexStartup(NolvexApplicationType type);
NOLVEXLIBWX_EXPORT void nolvexShutdown(void);
NOLVEXLIBWX_EXPORT int nolvexIsStarted(void);

/* The main loop of wxWidgets, for hosts without a loop of their own. Returns its exit code, -1 on failure. */
NOLVEXLIBWX_EXPORT int nolvexRunEventLoop(void);
NOLVEXLIBWX_EXPORT void nolvexStopEventLoop(void);

/* For hosts with a loop of their own, which call this regularly. */
NOLVEXLIBWX_EXPORT NolvexStatus nolvexProcessPendingEvents(void);

/* Counted as well: starts what the network needs and nothing else, for hosts that may have no display. Call
   nolvexStartup before or instead, not after. */
NOLVEXLIBWX_EXPORT NolvexStatus nolvexStartupNetwork(void);
NOLVEXLIBWX_EXPORT void nolvexShutdownNetwork(void);

/* ---- Messages, on any thread ---- */

typedef enum NolvexIcon
{
    NOLVEX_ICON_NONE = 0,
    NOLVEX_ICON_ERROR = 1,
    NOLVEX_ICON_WARNING = 2,
    NOLVEX_ICON_INFO = 3,
    NOLVEX_ICON_QUESTION = 4,
    NOLVEX_ICON_SUCCESS = 5
} NolvexIcon;

/* The first button of each pair agrees. */
typedef enum NolvexButtons
{
    NOLVEX_BUTTONS_OK = 0,
    NOLVEX_BUTTONS_OK_CANCEL = 1,
    NOLVEX_BUTTONS_YES_NO = 2
} NolvexButtons;

/* NOLVEX_OK if the user has agreed, and NOLVEX_CANCELLED for the other button or a closed dialog. */
NOLVEXLIBWX_EXPORT NolvexStatus nolvexShowMessage(void* owner, const char* title, const char* message,
                                                  NolvexIcon icon, NolvexButtons buttons);

/* ---- Files and folders, on the main thread ---- */

typedef struct NolvexFileFilter
{
    const char* description;
    const char* patterns; /* separated by semicolons: "*.jpg;*.jpeg" */
} NolvexFileFilter;

/* `initial` may be null. The results are given back by nolvexFreeText. */
NOLVEXLIBWX_EXPORT NolvexStatus nolvexChooseFileToOpen(void* owner, const char* title,
                                                       const NolvexFileFilter* filters, size_t filterCount,
                                                       const char* initial, char** path);
NOLVEXLIBWX_EXPORT NolvexStatus nolvexChooseFileToSave(void* owner, const char* title,
                                                       const NolvexFileFilter* filters, size_t filterCount,
                                                       int askBeforeOverwriting, const char* initial,
                                                       char** path);
NOLVEXLIBWX_EXPORT NolvexStatus nolvexChooseFolder(void* owner, const char* title, const char* initial,
                                                   char** path);

typedef struct NolvexPaths NolvexPaths; /* given back by nolvexFreePaths */

NOLVEXLIBWX_EXPORT NolvexStatus nolvexChooseFilesToOpen(void* owner, const char* title,
                                                        const NolvexFileFilter* filters, size_t filterCount,
                                                        const char* initial, NolvexPaths** paths);
NOLVEXLIBWX_EXPORT size_t nolvexPathCount(const NolvexPaths* paths);
/* Null beyond the last path. Valid as long as `paths`. */
NOLVEXLIBWX_EXPORT const char* nolvexPathAt(const NolvexPaths* paths, size_t index);
NOLVEXLIBWX_EXPORT void nolvexFreePaths(NolvexPaths* paths);

/* ---- Progress on the task bar, on any thread ---- */

typedef struct NolvexTaskbarProgress NolvexTaskbarProgress; /* given back by nolvexEndTaskbarProgress */

NOLVEXLIBWX_EXPORT NolvexStatus nolvexBeginTaskbarProgress(void* window, NolvexTaskbarProgress** progress);
/* A fraction from 0 to 1. */
NOLVEXLIBWX_EXPORT void nolvexSetProgress(NolvexTaskbarProgress* progress, float fraction);
NOLVEXLIBWX_EXPORT void nolvexSetIndeterminate(NolvexTaskbarProgress* progress);
NOLVEXLIBWX_EXPORT void nolvexSetIdle(NolvexTaskbarProgress* progress);
NOLVEXLIBWX_EXPORT void nolvexEndTaskbarProgress(NolvexTaskbarProgress* progress);

/* ---- Sending and receiving, on any thread ---- */

typedef struct NolvexListener NolvexListener;     /* given back by nolvexCloseListener */
typedef struct NolvexConnection NolvexConnection; /* given back by nolvexCloseConnection */
typedef struct NolvexMessage NolvexMessage;       /* given back by nolvexFreeMessage */

typedef enum NolvexMessageKind
{
    NOLVEX_TEXT = 0,
    NOLVEX_FILE = 1,
    NOLVEX_MEMORY = 2
} NolvexMessageKind;

enum
{
    NOLVEX_NO_TIME_LIMIT = -1
};

/* `host` is a name or an address; null listens on every interface of this computer. Port 0 lets the system
   choose. */
NOLVEXLIBWX_EXPORT NolvexStatus nolvexListen(const char* host, uint16_t port, NolvexListener** listener);
NOLVEXLIBWX_EXPORT uint16_t nolvexListenerPort(const NolvexListener* listener);
/* Waits for the next connection. NOLVEX_TIMEOUT after a second without any, and at once with `wait` 0. */
NOLVEXLIBWX_EXPORT NolvexStatus nolvexAccept(NolvexListener* listener, int wait,
                                             NolvexConnection** connection);
NOLVEXLIBWX_EXPORT void nolvexCloseListener(NolvexListener* listener);

NOLVEXLIBWX_EXPORT NolvexStatus nolvexConnect(const char* host, uint16_t port, unsigned timeoutSeconds,
                                              NolvexConnection** connection);
NOLVEXLIBWX_EXPORT int nolvexIsOpen(const NolvexConnection* connection);
NOLVEXLIBWX_EXPORT void nolvexCloseConnection(NolvexConnection* connection);

/* Headers are XML such as "<root><Frame>12</Frame></root>"; null sends an empty one. Time limits are in
   milliseconds, or NOLVEX_NO_TIME_LIMIT. */
NOLVEXLIBWX_EXPORT NolvexStatus nolvexSendText(NolvexConnection* connection, const char* xml,
                                               int64_t timeoutMs);
NOLVEXLIBWX_EXPORT NolvexStatus nolvexSendFile(NolvexConnection* connection, const char* path,
                                               const char* headerXml, int deflate, int64_t timeoutMs);
/* 1 to 2,147,483,647 bytes. */
NOLVEXLIBWX_EXPORT NolvexStatus nolvexSendMemory(NolvexConnection* connection, const void* data, size_t size,
                                                 const char* headerXml, int64_t timeoutMs);

/* Writes the path of the file for a coming body into `path`, which holds `capacity` bytes, and returns 1, or
   returns 0 to refuse the file, which ends the connection. The peer wrote the header: no name in it should be
   trusted. An existing file is overwritten. */
typedef int (*NolvexChoosePath)(void* context, const char* headerXml, char* path, size_t capacity);

/* NOLVEX_TIMEOUT if no message has begun for `silenceMs`, which may be NOLVEX_NO_TIME_LIMIT. A message that
   fails or is refused ends the connection. `choosePath` may be null: files are refused then. */
NOLVEXLIBWX_EXPORT NolvexStatus nolvexReceive(NolvexConnection* connection, int64_t silenceMs,
                                              NolvexChoosePath choosePath, void* context,
                                              NolvexMessage** message);
NOLVEXLIBWX_EXPORT NolvexMessageKind nolvexMessageKind(const NolvexMessage* message);
/* The header, which is the whole of a text. Valid as long as the message, as the next two. */
NOLVEXLIBWX_EXPORT const char* nolvexMessageXml(const NolvexMessage* message);
/* Where a file was written. Empty for other kinds. */
NOLVEXLIBWX_EXPORT const char* nolvexMessagePath(const NolvexMessage* message);
/* The bytes of a block of memory. Null, and 0 bytes, for other kinds. */
NOLVEXLIBWX_EXPORT const void* nolvexMessageData(const NolvexMessage* message, size_t* size);
NOLVEXLIBWX_EXPORT void nolvexFreeMessage(NolvexMessage* message);

#ifdef __cplusplus
}
#endif
