/* SPDX-License-Identifier: MIT */
/* A program in C that has no display and needs none: receives or sends a text, a block of memory and a file.
 */
#include "NolvexLibWx/c/Nolvex.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum
{
    MESSAGES = 3,
    PATIENCE_MS = 10000,
    CONNECT_SECONDS = 5
};

static int fail(void)
{
    fprintf(stderr, "%s\n", nolvexLastError());
    return EXIT_FAILURE;
}

/* Every file is written to the place that the caller of this program has chosen. */
static int choosePath(void* context, const char* headerXml, char* path, size_t capacity)
{
    (void)headerXml;
    return snprintf(path, capacity, "%s", (const char*)context) < (int)capacity;
}

static void print(const NolvexMessage* message)
{
    size_t size = 0;
    const char* const data = nolvexMessageData(message, &size);
    switch (nolvexMessageKind(message)) {
    case NOLVEX_TEXT:
        printf("text %s\n", nolvexMessageXml(message));
        break;
    case NOLVEX_FILE:
        printf("file %s\n", nolvexMessagePath(message));
        break;
    case NOLVEX_MEMORY:
        printf("memory %.*s\n", (int)size, data);
        break;
    }
    fflush(stdout);
}

static int receiveAll(NolvexConnection* connection, char* file)
{
    for (int received = 0; received < MESSAGES; ++received) {
        NolvexMessage* message = NULL;
        if (nolvexReceive(connection, PATIENCE_MS, choosePath, file, &message) != NOLVEX_OK)
            return fail();
        print(message);
        nolvexFreeMessage(message);
    }
    return EXIT_SUCCESS;
}

static int receive(char* file)
{
    NolvexListener* listener = NULL;
    if (nolvexListen("127.0.0.1", 0, &listener) != NOLVEX_OK)
        return fail();
    printf("port %u\n", (unsigned)nolvexListenerPort(listener));
    fflush(stdout);
    NolvexConnection* connection = NULL;
    NolvexStatus status = NOLVEX_TIMEOUT;
    for (int second = 0; second < PATIENCE_MS / 1000 && status == NOLVEX_TIMEOUT; ++second)
        status = nolvexAccept(listener, 1, &connection);
    const int result = status == NOLVEX_OK ? receiveAll(connection, file) : fail();
    nolvexCloseConnection(connection);
    nolvexCloseListener(listener);
    return result;
}

static int send(unsigned short port, const char* file)
{
    NolvexConnection* connection = NULL;
    if (nolvexConnect("127.0.0.1", port, CONNECT_SECONDS, &connection) != NOLVEX_OK)
        return fail();
    const char* const text = "<root><Frame>12</Frame></root>";
    const char* const memory = "twelve frames";
    int result = EXIT_SUCCESS;
    if (nolvexSendText(connection, text, NOLVEX_NO_TIME_LIMIT) != NOLVEX_OK ||
        nolvexSendMemory(connection, memory, strlen(memory), NULL, NOLVEX_NO_TIME_LIMIT) != NOLVEX_OK ||
        nolvexSendFile(connection, file, NULL, 1, NOLVEX_NO_TIME_LIMIT) != NOLVEX_OK)
        result = fail();
    nolvexCloseConnection(connection);
    return result;
}

int main(int argc, char** argv)
{
    if (nolvexStartupNetwork() != NOLVEX_OK)
        return fail();
    int result = EXIT_FAILURE;
    if (argc == 3 && strcmp(argv[1], "receive") == 0)
        result = receive(argv[2]);
    else if (argc == 4 && strcmp(argv[1], "send") == 0)
        result = send((unsigned short)strtoul(argv[2], NULL, 10), argv[3]);
    else
        fprintf(stderr, "usage: console-host receive FILE | send PORT FILE\n");
    nolvexShutdownNetwork();
    return result;
}
