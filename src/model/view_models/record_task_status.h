#pragma once

// Values of a record task's status as the device reports them.
enum RecordTaskStatus { kRecordStopped = 0, kRecordRunning = 1, kRecordPaused = 2 };
