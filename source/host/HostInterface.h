/* SPDX-FileCopyrightText: The WideLoom authors
 * SPDX-License-Identifier: GPL-3.0-or-later
 *
 * The whole border between a native plug-in host and the plug-in, for hosts written in C11 or later, or C++.
 * It is one file on purpose, for all its length: who writes a host copies it, and has the whole border.
 *
 * Widths: what the host's world calls long is 32 bits here, short 16. A "word" that can be an address is
 * uintptr_t. Indices of types, processes, controls, ports and chunks start at 1. Texts in `unsigned char*`
 * are Pascal strings (a length byte, then up to 255 bytes); texts in `char*` end in NUL, except where it says
 * otherwise.
 *
 * Threads: everything happens on the host's main thread, except the worker, and the transport reads that it
 * makes, which run on the host's real-time thread.
 */

#ifndef WIDELOOM_HOST_INTERFACE_H
#define WIDELOOM_HOST_INTERFACE_H

#include <assert.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
    #define FIC_BEGIN_C                                                                                      \
        extern "C"                                                                                           \
        {
    #define FIC_END_C }
#else
    #define FIC_BEGIN_C
    #define FIC_END_C
#endif

FIC_BEGIN_C

/*=====================================================================================
 * Codes
 */

/** Four characters, most significant byte first. */
#define FIC_CODE(a, b, c, d)                                                                                 \
    (((uint32_t)(unsigned char)(a) << 24) | ((uint32_t)(unsigned char)(b) << 16)                             \
     | ((uint32_t)(unsigned char)(c) << 8) | (uint32_t)(unsigned char)(d))

#define FIC_CHUNK_CONTROLS FIC_CODE ('e', 'l', 'c', 'k')
#define FIC_CHUNK_MIDI     FIC_CODE ('m', 'i', 'd', 'i')
#define FIC_CHUNK_JUCE     FIC_CODE ('j', 'u', 'c', 'e')

/* clang-format off */
/* What tokens say. A value is 32 bits of payload; the other payloads are bytes.
 *
 *   SET, VALUE         the plug-in wishes a control to have the value; the host answers with
 *                      UpdateControlValue, or not
 *   CURRENT, VALUE     from either side: the control has the value
 *   GET, VALUE         the host asks for a control's value, and gets CURRENT
 *   SET, TOUCH         1, 0, 1: the user holds the control; 0, 0, 1: has let go
 *   SET, GRABBED       some control was taken; for the name that FicSDSGetNameId gives for no parent and an
 *                      empty text
 *   SET, HIGHLIGHT     from the host, to highlight a control: two 16-bit numbers, 12 bytes of text, one
 *                      more such number
 *   SET, NEW_SIZE      the view has another size; for the instance's name, with FIC_PROTOCOL_PROCESS
 */
/* clang-format on */
#define FIC_TOKEN_SET     FIC_CODE ('S', 'E', 'T', 'V')
#define FIC_TOKEN_CURRENT FIC_CODE ('C', 'U', 'R', 'V')
#define FIC_TOKEN_GET     FIC_CODE ('G', 'E', 'T', 'V')

#define FIC_TOKEN_VALUE     FIC_CODE ('C', 'A', 'V', 'L')
#define FIC_TOKEN_TOUCH     FIC_CODE ('C', 'T', 'C', 'H')
#define FIC_TOKEN_GRABBED   FIC_CODE ('G', 'I', 'A', 'C')
#define FIC_TOKEN_HIGHLIGHT FIC_CODE ('C', 'H', 'I', 'L')
#define FIC_TOKEN_NEW_SIZE  FIC_CODE ('W', 'N', 'R', 'S')

#define FIC_TOKEN_MANUFACTURER FIC_CODE ('D', 'G', 'D', 'N')
#define FIC_PROTOCOL_CONTROL   FIC_CODE ('C', 't', 'r', 'l')
#define FIC_PROTOCOL_PROCESS   FIC_CODE ('P', 'r', 'o', 'c')

/** Selectors of FicGestalt(). An answer other than 0 says that the host has it. */
#define FIC_GESTALT_VARIABLE_QUANTA FIC_CODE ('v', 'q', 't', 'a')
#define FIC_GESTALT_TOKEN_SERVICE   FIC_CODE ('s', 'd', 's', 'h')

/** What routines and host functions return: 0 for success, or one of these. */
enum FicResult
{
    ficSuccess = 0,
    ficUnknownTypeIndex = -77,
    ficChunkNameUnreadable = -333,
    ficFunctionMissing = -2802,
    ficFrameworkMissing = -2812,
    ficNoGroup = -7003,
    ficObjectNotMade = -7053,
    ficNoRelatedType = -7055,
    ficServicesTooOld = -7060,
    ficNoCriticalSection = -7075,
    ficMidiChunkRefused = -7082,
    ficChunkEmpty = -7083,
    ficInputAlreadyConnected = -7100,
    ficOutputAlreadyConnected = -7101,
    ficConnectionFormatRefused = -7104,
    ficPortOutOfRange = -7106,
    ficPortNotConnected = -7107,
    ficUnknownType = -7125,
    ficUnknownProcess = -7126,
    ficChunkNotHandled = -7157,
    ficControlOutOfRange = -7300,
    ficNoControlValueInfo = -7304,
    ficUnknownException = -7401,
    ficOutOfMemory = -9006,
    ficNoSuchRoutine = -9007,
    ficTransportTooOld = -9145,
    ficEventNotHandled = -9874
};

/*=====================================================================================
 * Records
 */

typedef struct FicBundle* CFBundleRef; /* the host's; the plug-in only counts its references */
typedef struct EventRecord EventRecord;
typedef struct DAEConnection DAEConnection;
typedef uintptr_t GrafPtr;                 /* the number of an X11 window; 0 closes the view */
typedef struct FicObjectRecord* FicObject; /* something that the host made and only the host looks into */

typedef struct Rect
{
    int16_t top, left, bottom, right; /* pixels */
} Rect;

/** One chunk of a plug-in's settings. The body follows from byte ficChunkHeaderSize on. Host byte order.
 */
typedef struct SFicPlugInChunk
{
    int32_t chunkSize; /* bytes, this header included */
    int32_t version;
    uint32_t manufacturerID, productID, typeID, chunkID;
    unsigned char chunkName[32];
} SFicPlugInChunk;

enum
{
    ficChunkHeaderSize = 56
};

#pragma pack(push, 2)

/** A message of the token service. tokenLength counts bytes from the start of the record. */
typedef struct SFicSDSToken
{
    int32_t nameID;
    uint32_t tokenType, tokenSubType, manufacturer, protocol;
    int32_t targetID;
    unsigned char reserved[8];
    unsigned char unused[4];
    int16_t tokenLength;
    unsigned char payload[26]; /* a value: 32 bits from payload[0] on, not aligned */
} SFicSDSToken;

enum
{
    ficTokenHeaderLength = 38,
    ficTokenValueLength = 42,
    ficTokenTouchLength = 44
};

typedef struct SFicTimeCodeInfo
{
    signed char frameRate; /* 1: 24, 2: 25, 3: 29.97, 4: 29.97 drop, 5: 30, 6: 30 drop, 7: 23.976 frames/s */
    int32_t frameOffset;   /* frames */
} SFicTimeCodeInfo;

#pragma pack(pop)

typedef struct SFicConnectionFormat
{
    int16_t unused, first, second, third; /* 1, 2, 1 */
    float sampleRate;                     /* Hz */
} SFicConnectionFormat;

typedef struct SFicPlugInStemFormats
{
    int32_t input, output, sideChain; /* -1 none, 0 mono, 1 stereo, ... */
} SFicPlugInStemFormats;

typedef struct SFicPlugInSpec
{
    uint32_t manufacturerID, productID, typeID;
} SFicPlugInSpec;

typedef struct SFicPlugInId
{
    uint32_t manufacturerID, productID, typeID;
    uintptr_t plugInObject; /* what the host gave with SetCFicWidgetObject */
    int32_t processIndex;
} SFicPlugInId;

#pragma pack(push, 4)

/** What the real-time engine tells every worker. The plug-in only reads it. */
typedef struct SPlugInRTGlobals
{
    unsigned char unused0[12];
    float* emptyOutput;
    unsigned char unused20[68];
    int32_t quantum; /* samples a block; holds if variable quanta were agreed, else a block has 32 */
} SPlugInRTGlobals;

#pragma pack(pop)

enum
{
    ficFixedQuantum = 32
};

/** What one worker works on. Made by the host, with as many ports as the plug-in described: inputs, then
 * outputs. */
typedef struct SPlugInRTInstance
{
    uint32_t unused0, unused4;
    void* customData; /* the host's copy of the data block that the plug-in described */
    float** ports[1]; /* each points to a word that holds the port's samples (quantum floats) */
} SPlugInRTInstance;

/** [real-time] Renders one block. No exception leaves it. */
typedef void (*FicWorkerProc) (SPlugInRTInstance* instance, SPlugInRTGlobals* globals);

static_assert (sizeof (Rect) == 8 && offsetof (Rect, left) == 2 && offsetof (Rect, bottom) == 4
                   && offsetof (Rect, right) == 6,
               "Rect");
static_assert (sizeof (SFicPlugInChunk) == ficChunkHeaderSize && offsetof (SFicPlugInChunk, version) == 4
                   && offsetof (SFicPlugInChunk, manufacturerID) == 8
                   && offsetof (SFicPlugInChunk, productID) == 12 && offsetof (SFicPlugInChunk, typeID) == 16
                   && offsetof (SFicPlugInChunk, chunkID) == 20
                   && offsetof (SFicPlugInChunk, chunkName) == 24,
               "SFicPlugInChunk");
static_assert (sizeof (SFicSDSToken) == 64 && offsetof (SFicSDSToken, tokenType) == 4
                   && offsetof (SFicSDSToken, tokenSubType) == 8
                   && offsetof (SFicSDSToken, manufacturer) == 12 && offsetof (SFicSDSToken, protocol) == 16
                   && offsetof (SFicSDSToken, targetID) == 20 && offsetof (SFicSDSToken, reserved) == 24
                   && offsetof (SFicSDSToken, unused) == 32 && offsetof (SFicSDSToken, tokenLength) == 36
                   && offsetof (SFicSDSToken, payload) == ficTokenHeaderLength,
               "SFicSDSToken");
static_assert (sizeof (SFicTimeCodeInfo) == 6 && offsetof (SFicTimeCodeInfo, frameOffset) == 2,
               "SFicTimeCodeInfo");
static_assert (sizeof (SFicConnectionFormat) == 12 && offsetof (SFicConnectionFormat, first) == 2
                   && offsetof (SFicConnectionFormat, second) == 4
                   && offsetof (SFicConnectionFormat, third) == 6
                   && offsetof (SFicConnectionFormat, sampleRate) == 8,
               "SFicConnectionFormat");
static_assert (sizeof (SFicPlugInStemFormats) == 12 && offsetof (SFicPlugInStemFormats, output) == 4
                   && offsetof (SFicPlugInStemFormats, sideChain) == 8,
               "SFicPlugInStemFormats");
static_assert (sizeof (SFicPlugInSpec) == 12 && offsetof (SFicPlugInSpec, productID) == 4
                   && offsetof (SFicPlugInSpec, typeID) == 8,
               "SFicPlugInSpec");
static_assert (offsetof (SPlugInRTGlobals, emptyOutput) == 12 && offsetof (SPlugInRTGlobals, quantum) == 88,
               "SPlugInRTGlobals");

#if UINTPTR_MAX == UINT64_MAX
static_assert (sizeof (SFicPlugInId) == 32 && offsetof (SFicPlugInId, productID) == 4
                   && offsetof (SFicPlugInId, typeID) == 8 && offsetof (SFicPlugInId, plugInObject) == 16
                   && offsetof (SFicPlugInId, processIndex) == 24,
               "SFicPlugInId");
static_assert (sizeof (SPlugInRTGlobals) == 92, "SPlugInRTGlobals");
static_assert (sizeof (SPlugInRTInstance) == 24 && offsetof (SPlugInRTInstance, customData) == 8
                   && offsetof (SPlugInRTInstance, ports) == 16,
               "SPlugInRTInstance");
#endif

/* clang-format off */
/*=====================================================================================
 * What the host's real-time engine is told
 *
 * The plug-in registers objects and sends each one's description as a list of words, in the order below. A
 * reference is the address of a registered object. Texts are the address of text that lives as long as its
 * object.
 *
 *   plug-in, first   2: leave scheduling alone from now on
 *   input, output    1; plug-in; port number
 *   worker           6; FicWorkerProc; 4; then four times a count and that many references (data objects
 *                    first, the others are empty); name; 0
 *   data             1; data type (0); size in bytes; address of a uintptr_t. The host writes the address of
 *                    its own block of that size there before the call returns; the plug-in fills it then
 *   plug-in          1; manufacturer, product, type, plugInObject, process index (as in SFicPlugInId); number
 *                    of inputs, references; number of outputs, references; number of workers, references
 *   plug-in, last    3: scheduling may go on
 *
 * From its description on the plug-in may be rendered. One last description without ports and workers
 * comes when the process ends; the worker must not run from then on.
 */
/* clang-format on */

enum FicRemoteObjectKind
{
    ficRemotePlugIn = 3,
    ficRemoteInput = 4,
    ficRemoteOutput = 5,
    ficRemoteWorker = 7,
    ficRemoteData = 8
};

/** The host's remote object manager. */
typedef struct SFicRemoteObjectManager
{
    int32_t (*Register) (void* object, int32_t kind);
    int32_t (*Call) (void* object, const uintptr_t* words, int32_t numWords);
} SFicRemoteObjectManager;

#if UINTPTR_MAX == UINT64_MAX
static_assert (sizeof (SFicRemoteObjectManager) == 16 && offsetof (SFicRemoteObjectManager, Call) == 8,
               "SFicRemoteObjectManager");
#endif

/** What the host gives with SetXCMDProc. The plug-in asks it, once and with ficRemoteObjectManagerCode,
   for the manager. */
typedef int32_t (*FicXCMDProc) (int32_t code, const SFicRemoteObjectManager** manager);

enum
{
    ficRemoteObjectManagerCode = 18
};

/*=====================================================================================
 * The host's transport
 */

/** [real-time] Each read returns 0, and another result leaves the value as it was. `self` is the
 * interface. */
typedef struct SFicTransport
{
    int32_t (*GetCurrentTempo) (const struct SFicTransport* self, double* beatsPerMinute);
    int32_t (*GetCurrentMeter) (const struct SFicTransport* self, int32_t* numerator, int32_t* denominator);
    int32_t (*IsTransportPlaying) (const struct SFicTransport* self, unsigned char* playing);
    /* these from interface version 7 on */
    int32_t (*GetCurrentTDMSampleLocation) (const struct SFicTransport* self, int64_t* samples);
    int32_t (*GetCurrentRTASSampleLocation) (const struct SFicTransport* self, int64_t* samples);
    int32_t (*GetCustomTickPosition) (const struct SFicTransport* self,
                                      int64_t* ticks,
                                      int64_t samplePosition);
} SFicTransport;

#if UINTPTR_MAX == UINT64_MAX
static_assert (sizeof (SFicTransport) == 48 && offsetof (SFicTransport, GetCurrentMeter) == 8
                   && offsetof (SFicTransport, IsTransportPlaying) == 16
                   && offsetof (SFicTransport, GetCurrentTDMSampleLocation) == 24
                   && offsetof (SFicTransport, GetCurrentRTASSampleLocation) == 32
                   && offsetof (SFicTransport, GetCustomTickPosition) == 40,
               "SFicTransport");
#endif

/*=====================================================================================
 * The host's functions
 *
 * The running program exports them; the plug-in looks each one up by name. Without the marker the whole
 * framework counts as missing (ficFrameworkMissing); else a function that is not there counts as one that
 * returned ficFunctionMissing.
 */

/** The standard objects that the host makes. */
enum FicStandardObject
{
    ficListenerObject = 56, /* described by an SFicListener */
    ficTokenTaskObject = 57 /* described by a null pointer */
};

/** Which tokens of a name go to which task. */
typedef struct SFicListener
{
    int32_t nameID;
    int32_t goal;             /* 0 */
    unsigned char isCritical; /* 0 */
    unsigned char latestOnly; /* 1: of tokens that wait, only the latest is kept */
    uintptr_t taskValue;      /* comes back with each token */
    FicObject task;
    uint32_t protocol, manufacturer, tokenType, tokenSubType;
} SFicListener;

#if UINTPTR_MAX == UINT64_MAX
static_assert (sizeof (SFicListener) == 48 && offsetof (SFicListener, goal) == 4
                   && offsetof (SFicListener, isCritical) == 8 && offsetof (SFicListener, latestOnly) == 9
                   && offsetof (SFicListener, taskValue) == 16 && offsetof (SFicListener, task) == 24
                   && offsetof (SFicListener, protocol) == 32 && offsetof (SFicListener, manufacturer) == 36
                   && offsetof (SFicListener, tokenType) == 40 && offsetof (SFicListener, tokenSubType) == 44,
               "SFicListener");
#endif

/** The host's services object. */
typedef struct SFicServices
{
    int32_t version; /* at least 1 */
    int32_t (*InitFic) (void);
    FicObject (*NewStandardObject) (int32_t kind, const SFicListener* listener); /* null on failure */
    void (*ReleaseObject) (FicObject object); /* objects, servers and critical sections */
    int32_t (*ReleaseName) (int32_t nameID);
    unsigned char (*TryToEnterCriticalSection) (FicObject section); /* 1 if entered */
} SFicServices;

#if UINTPTR_MAX == UINT64_MAX
static_assert (sizeof (SFicServices) == 48 && offsetof (SFicServices, InitFic) == 8
                   && offsetof (SFicServices, NewStandardObject) == 16
                   && offsetof (SFicServices, ReleaseObject) == 24
                   && offsetof (SFicServices, ReleaseName) == 32
                   && offsetof (SFicServices, TryToEnterCriticalSection) == 40,
               "SFicServices");
#endif

#define FIC_FRAMEWORK_MARKER "FicGetFrameworkVersion"

/* Rows: result, name, parameters. */
#define FIC_HOST_FUNCTIONS(X)                                                                                \
    X (int32_t, FicGetFrameworkVersion, (void))                                                              \
    X (const SFicServices*, FicGetServices, (void))                                                          \
    X (int32_t, FicGestalt, (uint32_t selector, int32_t * answer))                                           \
    X (int32_t, FicGetMaximumRTASQuantum, (void))                                                            \
    X (unsigned char, FicIsAlive, (void))                                                                    \
    X (FicObject, FicNewServer, (void))                                                                      \
    X (FicObject, FicCreateCriticalSection, (void))                                                          \
    X (int32_t, FicEnterCriticalSection, (FicObject section))                                                \
    X (int32_t, FicLeaveCriticalSection, (FicObject section))                                                \
    X (int32_t, FicSDSReserveName, (int32_t parentID, const char* name, int32_t* nameID))                    \
    X (int32_t, FicSDSGetNameId, (int32_t parentID, const char* name, int32_t* nameID))                      \
    X (int32_t, FicSDSDispatchToken, (const SFicSDSToken* token))                                            \
    X (int32_t, FicSDSGetTokenAndTaskVal, (FicObject task, SFicSDSToken * *token, uintptr_t * taskValue))    \
    X (int32_t, FicSDSDoneWithToken, (SFicSDSToken * token))                                                 \
    X (int32_t, FicPersonalityDoIdle, (void))                                                                \
    X (int32_t,                                                                                              \
       FicRegisterDirectMIDIClient,                                                                          \
       (int32_t version, void* client, const SFicPlugInSpec* spec, const SFicTransport** transport))         \
    X (int32_t, FicUnRegisterDirectMIDIClient, (const SFicTransport* transport))                             \
    X (int32_t, FicRetainBundle, (CFBundleRef bundle))                                                       \
    X (int32_t, FicReleaseBundle, (CFBundleRef bundle))                                                      \
    X (unsigned char, FicEventAvail, (EventRecord * *event))

#define FIC_DECLARE_HOST_FUNCTION(Result, Name, parameters) typedef Result (*Name##Proc) parameters;
FIC_HOST_FUNCTIONS (FIC_DECLARE_HOST_FUNCTION)
#undef FIC_DECLARE_HOST_FUNCTION

/*=====================================================================================
 * The plug-in's exports
 */

typedef int32_t (*NewMachOPlugInProc) (CFBundleRef bundle);
typedef int32_t (*CloseMachOPlugInProc) (CFBundleRef bundle);
typedef CFBundleRef (*CProcessGroupGetBundleRefProc) (void);
typedef int16_t (*CProcessGroupUseResourceFileProc) (void);
typedef void (*CProcessGroupRestoreResourceFileProc) (int16_t file);

/** Any routine, until it is cast to its own type. */
typedef int32_t (*FicRoutine) (void);

/** Gives a selector's routine and returns 0, or gives null and returns ficNoSuchRoutine. The exported data
 * __PI_GetRoutineDescriptor is four words, and the first is the address of this function. */
typedef int32_t (*PI_GetRoutineDescriptorProc) (int32_t selector, FicRoutine* routine);

enum
{
    ficNumSelectors = 174
};

/* clang-format off */
/*=====================================================================================
 * The routines
 *
 * One row each: selector, name, what answers, parameters, their names. The C names are PI_ and the name, the
 * types below PI_...Proc, the selectors ficSelector and the name.
 *
 *   GROUP     concerns the whole plug-in
 *   TYPE      concerns one process type; before its own parameters comes (uint32_t type)
 *   PROCESS   concerns one instance; before its own parameters come (uint32_t type, int32_t process). The row
 *             has also what an instance answers that knows nothing better; results then are zero, texts empty
 *   FIXED     as PROCESS, but returns 0 and touches nothing, whatever it is given
 *
 * All return an int32_t, a FicResult except where the comment says otherwise. A result is not written through
 * a null pointer. Selectors 11, 13, 21, 26, 34, 60, 61, 106 and 107 have no routine.
 */

#define FIC_ROUTINES(GROUP, TYPE, PROCESS, FIXED)                                                                      \
    PROCESS (0, Draw, 0, (, const Rect* area), (, area))                                                               \
    PROCESS (1, DoMouseCommand, 0, (, EventRecord* event), (, event))                                                  \
    PROCESS (2, DoKeyCommand, 0, (, EventRecord* event, unsigned char* handled), (, event, handled))                   \
    PROCESS (3, DoIdle, 0, (), ())                                                                                     \
    PROCESS (4, GetViewRect, 0, (, Rect* area), (, area))                                                              \
    /* Pascal string of at most `length` characters */                                                                 \
    TYPE (5, GetProcessTypeName, (, int32_t length, unsigned char* name), (, length, name))                            \
    GROUP (6, GetProcessTypeIDs,                                                                                       \
           (int32_t typeIndex, uint32_t* manufacturer, uint32_t* product, uint32_t* type),                             \
           (typeIndex, manufacturer, product, type))                                                                   \
    GROUP (7, SetSampleRate, (int32_t hertz), (hertz))                                                                 \
    PROCESS (8, ActivateWindow, 0, (), ())                                                                             \
    PROCESS (9, DeactivateWindow, 0, (), ())                                                                           \
    PROCESS (10, GetNumAudioInputs, 0, (, int16_t* numInputs), (, numInputs))                                          \
    GROUP (12, GetManufacturerName, (int32_t length, unsigned char* name), (length, name))                             \
    GROUP (14, SetXCMDProc, (FicXCMDProc callback), (callback))                                                        \
    PROCESS (15, DoSetCursor, 0, (, EventRecord* event), (, event))                                                    \
    GROUP (16, AllocateHardware, (void), ())                                                                           \
    PROCESS (17, GetNumAudioOutputs, 0, (, int16_t* numOutputs), (, numOutputs))                                       \
    GROUP (18, FreeHardware, (void), ())                                                                               \
    TYPE (19, InstantiateProcess, (, int32_t* process), (, process))                                                   \
    TYPE (20, FreeProcess, (, int32_t process), (, process))                                                           \
    GROUP (22, GetNumProcessTypes, (int16_t* numTypes), (numTypes))                                                    \
    PROCESS (23, SetNumAudioInputs, 0, (, int16_t numInputs), (, numInputs))                                           \
    PROCESS (24, SetNumAudioOutputs, 0, (, int16_t numOutputs), (, numOutputs))                                        \
    TYPE (25, GetProcessTypeFlags, (, uint32_t* flags), (, flags))                                                     \
    PROCESS (27, IsInputPortConnected, 0, (, int32_t port, unsigned char* connected), (, port, connected))             \
    PROCESS (28, CanOutputPortConnect, 0, (, int32_t port, unsigned char* canConnect), (, port, canConnect))           \
    PROCESS (29, IsOutputPortConnected, 0, (, int32_t port, unsigned char* connected), (, port, connected))            \
    PROCESS (30, ConnectInput, 0, (, int32_t port, DAEConnection* connection), (, port, connection))                   \
    PROCESS (31, ConnectOutput, 0, (, int32_t port, DAEConnection* connection), (, port, connection))                  \
    PROCESS (32, DisconnectInput, 0, (, int32_t port), (, port))                                                       \
    PROCESS (33, DisconnectOutput, 0, (, int32_t port), (, port))                                                      \
    PROCESS (35, GetDriverTypeList, 0, (, int32_t* numTypes), (, numTypes))                                            \
    PROCESS (36, GetDriverRefNumOfInput, 0, (, int32_t port, int32_t* refNum), (, port, refNum))                       \
    PROCESS (37, GetDriverRefNumOfOutput, 0, (, int32_t port, int32_t* refNum), (, port, refNum))                      \
    /* the object comes back in each SFicPlugInId */                                                                   \
    GROUP (38, SetCFicWidgetObject, (uintptr_t object), (object))                                                      \
    PROCESS (39, SetBypass, 0, (, int32_t port, unsigned char on), (, port, on))                                       \
    PROCESS (40, GetNumControls, 0, (, int32_t* numControls), (, numControls))                                         \
    PROCESS (41, IsControlAutomatable, 0, (, int32_t control, unsigned char* automatable), (, control, automatable))   \
    PROCESS (42, GetNumControlSteps, 0, (, int32_t control, int32_t* numSteps), (, control, numSteps))                 \
    FIXED (43, GetValToStringProcPtr, (, int32_t control, FicRoutine* routine), (, control, routine))                  \
    /* up to 31 characters and NUL */                                                                                  \
    PROCESS (44, GetControlName, 0, (, int32_t control, char* name), (, control, name))                                \
    PROCESS (45, GetControlValue, 0, (, int32_t control, int32_t* value), (, control, value))                          \
    PROCESS (46, SetControlValue, 0, (, int32_t control, int32_t value), (, control, value))                           \
    PROCESS (47, SetViewPort, 0, (, GrafPtr port), (, port))                                                           \
    PROCESS (48, SetViewOrigin, 0, (, int16_t top, int16_t left), (, top, left))                                       \
    PROCESS (49, SendRampRegion, 0, (, int32_t control, int32_t value, int32_t numSamples),                            \
             (, control, value, numSamples))                                                                           \
    PROCESS (50, SetMute, 0, (, int32_t port, unsigned char on), (, port, on))                                         \
    PROCESS (51, GetBypass, 0, (, int32_t port, unsigned char* on), (, port, on))                                      \
    PROCESS (52, GetMute, 0, (, int32_t port, unsigned char* on), (, port, on))                                        \
    PROCESS (53, GetNumMeters, 0, (, int32_t* numMeters), (, numMeters))                                               \
    PROCESS (54, GetMeterVal, 0, (, int32_t meter, int32_t* value), (, meter, value))                                  \
    PROCESS (55, GetMeterName, 0, (, int32_t meter, unsigned char* name), (, meter, name))                             \
    FIXED (56, GetIOModes, (, int32_t* modes), (, modes))                                                              \
    FIXED (57, SetIOMode, (, int32_t mode), (, mode))                                                                  \
    FIXED (58, GetCurrentIOMode, (, int32_t* mode), (, mode))                                                          \
    PROCESS (59, GetPortOnHardwareIndex, 0, (, int32_t index, int32_t* port), (, index, port))                         \
    PROCESS (62, GetNumChunks, 0, (, int32_t* numChunks), (, numChunks))                                               \
    PROCESS (63, GetIndexedChunkID, -7157, (, int32_t index, uint32_t* chunkID), (, index, chunkID))                   \
    PROCESS (64, DescribeChunk, -7157, (, uint32_t chunkID, unsigned char* description), (, chunkID, description))     \
    PROCESS (65, GetChunkSize, -7157, (, uint32_t chunkID, int32_t* size), (, chunkID, size))                          \
    /* `chunk` has the room that GetChunkSize said */                                                                  \
    PROCESS (66, GetChunk, -7157, (, uint32_t chunkID, SFicPlugInChunk* chunk), (, chunkID, chunk))                    \
    PROCESS (67, SetChunk, 0, (, uint32_t chunkID, const SFicPlugInChunk* chunk), (, chunkID, chunk))                  \
    GROUP (68, GetRelatedProcessType, (SFicPlugInSpec* spec, int32_t inputs, int32_t outputs),                         \
           (spec, inputs, outputs))                                                                                    \
    GROUP (69, BoundAutoSegment, (int32_t start, int32_t end), (start, end))                                           \
    PROCESS (70, DisableAutomation, 0, (, unsigned char disabled), (, disabled))                                       \
    PROCESS (71, SetControlOverride, 0, (, int32_t control, unsigned char on), (, control, on))                        \
    GROUP (72, Prime, (unsigned char on), (on))                                                                        \
    PROCESS (73, GetAutoEventList, 0, (, int32_t control, int32_t* numEvents), (, control, numEvents))                 \
    PROCESS (74, GetAutoEventTag, 0, (, int32_t control, uint32_t* tag), (, control, tag))                             \
    /* returns the type itself */                                                                                      \
    GROUP (75, GetAutoType, (void), ())                                                                                \
    FIXED (76, ReserveResources, (), ())                                                                               \
    FIXED (77, ReleaseResources, (), ())                                                                               \
    FIXED (78, NumReservedResources, (, int32_t* numResources), (, numResources))                                      \
    PROCESS (79, IsIOProcessType, 0, (, unsigned char* isIO), (, isIO))                                                \
    PROCESS (80, GetDelaySamples, 0, (, int16_t* numSamples), (, numSamples))                                          \
    PROCESS (81, SetControlRelative, 0, (, int32_t control, int32_t delta), (, control, delta))                        \
    PROCESS (82, GetControlPriority, 0, (, int32_t control, int32_t* priority), (, control, priority))                 \
    FIXED (83, GetProcessGroupNameID, (, int32_t* nameID), (, nameID))                                                 \
    FIXED (84, GetProcessTypeNameID, (, int32_t* nameID), (, nameID))                                                  \
    PROCESS (85, GetProcessNameID, 0, (, int32_t* nameID), (, nameID))                                                 \
    PROCESS (86, GetControlNameID, 0, (, int32_t control, int32_t* nameID), (, control, nameID))                       \
    PROCESS (87, ChooseControl, 0, (, int32_t control), (, control))                                                   \
    PROCESS (88, GetControlType, 0, (, int32_t control, int32_t* controlType), (, control, controlType))               \
    PROCESS (89, GetControlOrientation, 0, (, int32_t control, int32_t* orientation), (, control, orientation))        \
    /* up to `length` characters and NUL; 100 and more mean 100 less */                                                \
    PROCESS (90, MapControlValToString, 0, (, int32_t control, int32_t value, char* text, int32_t length),             \
             (, control, value, text, length))                                                                         \
    GROUP (91, EnablePlugInType, (int32_t plugInType), (plugInType))                                                   \
    TYPE (92, GetPlugInType, (, int32_t* plugInType), (, plugInType))                                                  \
    /* `value` goes in and comes out */                                                                                \
    TYPE (93, Gestalt, (, int32_t selector, int32_t* value), (, selector, value))                                      \
    PROCESS (94, GetConnectionFormat, 0, (, int16_t port, int16_t index, SFicConnectionFormat* format),                \
             (, port, index, format))                                                                                  \
    PROCESS (95, SetConnectionFormat, 0, (, int16_t port, int16_t index, const SFicConnectionFormat* format),          \
             (, port, index, format))                                                                                  \
    PROCESS (96, GetNumParamFormats, 0, (, int32_t* numFormats), (, numFormats))                                       \
    PROCESS (97, GetIndexParamFormat, 0, (, int32_t index, int32_t* format), (, index, format))                        \
    /* but writes an empty text */                                                                                     \
    FIXED (98, GetControlUnitsString, (, int32_t control, char* units), (, control, units))                            \
    PROCESS (99, UpdateControlValue, 0, (, int32_t control, int32_t value), (, control, value))                        \
    PROCESS (100, UpdateControlRelative, 0, (, int32_t control, int32_t delta), (, control, delta))                    \
    PROCESS (101, InitOutputBounds, 0, (, int32_t start, int32_t end), (, start, end))                                 \
    PROCESS (102, SetOutputBounds, 0, (, int32_t port, int32_t start, int32_t end), (, port, start, end))              \
    PROCESS (103, TranslateOutputSampleNum, 0, (, int32_t port, int32_t sample, int32_t* translated),                  \
             (, port, sample, translated))                                                                             \
    PROCESS (104, AnalyzeData, 0, (, int32_t start, int32_t end), (, start, end))                                      \
    PROCESS (105, ProcessData, 0, (, int32_t start, int32_t end), (, start, end))                                      \
    PROCESS (108, GetPlugInString, 0, (, int32_t selector, unsigned char* text), (, selector, text))                   \
    PROCESS (109, GetControlDefaultValue, 0, (, int32_t control, int32_t* value), (, control, value))                  \
    PROCESS (110, GetNumChanges, 0, (, int32_t* numChanges), (, numChanges))                                           \
    GROUP (111, SetTimeCodeInfo, (const SFicTimeCodeInfo* info), (info))                                               \
    FIXED (112, GetNumAutoStates, (, int32_t* numStates), (, numStates))                                               \
    FIXED (113, GetAutoState, (, int32_t index, int32_t* state), (, index, state))                                     \
    FIXED (114, SetAutoState, (, int32_t index, int32_t state), (, index, state))                                      \
    FIXED (115, GetNumAutoTriggers, (, int32_t* numTriggers), (, numTriggers))                                         \
    FIXED (116, GetAutoTrigger, (, int32_t index, int32_t* trigger), (, index, trigger))                               \
    FIXED (117, SetAutoTrigger, (, int32_t index, int32_t trigger), (, index, trigger))                                \
    FIXED (118, GetTriggerOffset, (, int32_t index, int32_t* offset), (, index, offset))                               \
    FIXED (119, SetTriggerOffset, (, int32_t index, int32_t offset), (, index, offset))                                \
    PROCESS (120, GetNumControlPages, 0, (, int32_t* numPages), (, numPages))                                          \
    PROCESS (121, GetControlForPage, 0, (, int32_t page, int32_t position, int32_t* control),                          \
             (, page, position, control))                                                                              \
    GROUP (122, SetLocationTempo, (int32_t location, int32_t tempo), (location, tempo))                                \
    PROCESS (123, SetSourceRegionList, 0, (, const void* regions), (, regions))                                        \
    PROCESS (124, SetDestRegionList, 0, (, const void* regions), (, regions))                                          \
    GROUP (125, SetDitherBits, (int32_t numBits), (numBits))                                                           \
    PROCESS (126, GetControlHighliteInfo, 0, (, int32_t control, int16_t* on, int16_t* colour),                        \
             (, control, on, colour))                                                                                  \
    PROCESS (127, SetControlHighliteInfo, 0, (, int32_t control, int16_t on, int16_t colour), (, control, on, colour)) \
    PROCESS (128, CompareActiveChunk, 0, (, const SFicPlugInChunk* chunk, unsigned char* same), (, chunk, same))       \
    PROCESS (129, HasCustomizedPageTable, 0, (, unsigned char* customized), (, customized))                            \
    PROCESS (130, SetPreviewState, 0, (, int16_t state), (, state))                                                    \
    /* up to `length` characters and NUL */                                                                            \
    PROCESS (131, GetControlNameOfLength, 0,                                                                           \
             (, int32_t control, char* name, int32_t length, uint32_t controllerType, int16_t* requiredLength),        \
             (, control, name, length, controllerType, requiredLength))                                                \
    PROCESS (132, GetMasterBypassControl, 0, (, int32_t* control), (, control))                                        \
    PROCESS (133, GetFirstPageForCategory, 0, (, int32_t category, int32_t* page), (, category, page))                 \
    PROCESS (134, GetIsBypassableByCategory, 0, (, int32_t category, unsigned char* bypassable),                       \
             (, category, bypassable))                                                                                 \
    PROCESS (135, GetBypassControlByCategory, 0, (, int32_t category, int32_t* control), (, category, control))        \
    PROCESS (136, GetDSPCoreTypeList, 0, (, int32_t* numTypes), (, numTypes))                                          \
    TYPE (137, GetStemFormats, (, SFicPlugInStemFormats* formats), (, formats))                                        \
    GROUP (138, GetRelatedProcessTypeOfType,                                                                           \
           (SFicPlugInSpec* spec, int32_t plugInType, int32_t inputs, int32_t outputs, int32_t inputFormat,            \
            int32_t outputFormat),                                                                                     \
           (spec, plugInType, inputs, outputs, inputFormat, outputFormat))                                             \
    PROCESS (139, SetParentPlugInSpec, 0, (, const SFicPlugInSpec* spec), (, spec))                                    \
    PROCESS (140, GetParentPlugInSpec, 0, (, SFicPlugInSpec* spec), (, spec))                                          \
    PROCESS (141, GetInputPortForChildPort, 0, (, int32_t childPort, int32_t* port), (, childPort, port))              \
    PROCESS (142, GetOutputPortForChildPort, 0, (, int32_t childPort, int32_t* port), (, childPort, port))             \
    PROCESS (143, SetUseDoublePrecisionIO, 0, (, unsigned char on), (, on))                                            \
    PROCESS (144, ReleaseMIDI, 0, (), ())                                                                              \
    PROCESS (145, GetDelaySamplesLong, 0, (, int32_t* numSamples), (, numSamples))                                     \
    PROCESS (146, GetMeterOrientation, 0, (, int32_t meter, int32_t* orientation), (, meter, orientation))             \
    PROCESS (147, GetNumMetersOfType, 0, (, int32_t meterType, int32_t* numMeters), (, meterType, numMeters))          \
    PROCESS (148, GetMeterIndexByType, 0, (, int32_t meterType, int32_t number, int32_t* meter),                       \
             (, meterType, number, meter))                                                                             \
    PROCESS (149, GetClipState, 0, (, unsigned char* clipped), (, clipped))                                            \
    PROCESS (150, ClearClipState, 0, (), ())                                                                           \
    PROCESS (151, SetInputDelaySamples, 0, (, int32_t numSamples), (, numSamples))                                     \
    PROCESS (152, GetInputDelaySamples, 0, (, int32_t* numSamples), (, numSamples))                                    \
    PROCESS (153, GetMaxDelaySamples, 0, (, int32_t* numSamples), (, numSamples))                                      \
    PROCESS (154, SetInputMonitorDelaySamples, 0, (, int32_t numSamples), (, numSamples))                              \
    PROCESS (155, GetInputMonitorDelaySamples, 0, (, int32_t* numSamples), (, numSamples))                             \
    PROCESS (156, GetControlValueInfo, -7304, (, int32_t control, uint32_t selector, int32_t* value),                  \
             (, control, selector, value))                                                                             \
    PROCESS (157, UseInputMonitorDelay, 0, (, unsigned char on), (, on))                                               \
    PROCESS (158, GetNumAuxOutputStems, 0, (, int32_t* numStems), (, numStems))                                        \
    PROCESS (159, GetAuxOutputStemInfo, 0, (, int32_t stem, int32_t* stemFormat, int32_t* firstPort),                  \
             (, stem, stemFormat, firstPort))                                                                          \
    PROCESS (160, DrawDragAndDropHilight, 0, (, unsigned char on), (, on))                                             \
    PROCESS (161, BeginDragData, 0, (, EventRecord* event), (, event))                                                 \
    PROCESS (162, RegisterDragData, 0, (, const void* drag), (, drag))                                                 \
    PROCESS (163, CompleteDragData, 0, (, const void* drag), (, drag))                                                 \
    PROCESS (164, DropData, 0, (, const void* drag), (, drag))                                                         \
    PROCESS (165, DoCustomPlugInSettingsFile, 0, (, int32_t action), (, action))                                       \
    TYPE (166, GetXMLPageTableForType, (, char* text, int32_t size), (, text, size))                                   \
    TYPE (167, GetXMLPageTableSizeForType, (, int32_t* size), (, size))                                                \
    PROCESS (168, SpecifyFindAndRelinkCallback, 0, (, FicRoutine callback), (, callback))                              \
    PROCESS (169, ReturnFindAndRelinkFiles, 0, (, const void* files), (, files))                                       \
    PROCESS (170, SetFilePathsForSessionCopy, 0, (, const void* paths), (, paths))                                     \
    PROCESS (171, SpecifyLoadPlugInSettingsFileCallback, 0, (, FicRoutine callback), (, callback))                     \
    PROCESS (172, GetIACFUnknown, 0, (, void** object), (, object))                                                    \
    PROCESS (173, ResetPlugInState, 0, (), ())

#define FIC_BARE(...) __VA_ARGS__
#define FIC_GROUP_TYPE(selector, Name, parameters, names)                                                              \
    typedef int32_t (*PI_##Name##Proc) parameters;
#define FIC_TYPE_TYPE(selector, Name, parameters, names)                                                               \
    typedef int32_t (*PI_##Name##Proc) (uint32_t type FIC_BARE parameters);
#define FIC_PROCESS_TYPE(selector, Name, answer, parameters, names)                                                    \
    typedef int32_t (*PI_##Name##Proc) (uint32_t type, int32_t process FIC_BARE parameters);
#define FIC_FIXED_TYPE(selector, Name, parameters, names)                                                              \
    typedef int32_t (*PI_##Name##Proc) (uint32_t type, int32_t process FIC_BARE parameters);

FIC_ROUTINES (FIC_GROUP_TYPE, FIC_TYPE_TYPE, FIC_PROCESS_TYPE, FIC_FIXED_TYPE)

#undef FIC_GROUP_TYPE
#undef FIC_TYPE_TYPE
#undef FIC_PROCESS_TYPE
#undef FIC_FIXED_TYPE

#define FIC_SELECTOR(number, Name, ...) ficSelector##Name = number,

enum FicSelector
{
    FIC_ROUTINES (FIC_SELECTOR, FIC_SELECTOR, FIC_SELECTOR, FIC_SELECTOR)
};

#undef FIC_SELECTOR
/* clang-format on */

FIC_END_C

#endif
