#pragma once
// vexa: where the progress calls of KeloRun jobs run. By default a job calls
// its KeloNotifyProc on its own worker thread. A program with an event loop
// can hand the calls to that loop instead, so that a job's last call can
// never overtake the code that waits for it.

#ifdef __cplusplus
extern "C" {
#endif

typedef void (*KeloTaskProc)(void* arg);
// Must run task(arg) exactly once, later and on any thread; it must not
// wait for the task. A task it can never run (its event loop ended first)
// goes to KeloDiscardTask instead.
typedef void (*KeloPostProc)(KeloTaskProc task, void* arg);

// Jobs started after this call hand each progress call to post(); null
// restores calls on the worker thread. A job cancelled by KeloRemoveMedia or
// DestroyTimeline makes no further calls, posted or not.
void KeloSetNotifyDispatcher(KeloPostProc post);

// Frees what a posted task holds without running it: for a poster whose
// loop ends with tasks still waiting. The progress call is not made.
void KeloDiscardTask(KeloTaskProc task, void* arg);

#ifdef __cplusplus
}
#endif
