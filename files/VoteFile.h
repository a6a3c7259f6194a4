// Vote files: a composed vote as an SQLite database of three tables.
//
// A file holds one topic, its questions and their options, in the active code page of the machine that wrote it, and
// no answers, participants or dates. The module never works on the user's file directly: both operations go through a
// database at one fixed temporary path, so two of them at once, in any two processes of a machine, get in each other's
// way. Both block their thread and report only success.
#pragma once

#include "records/VoteRecords.h"

// Replaces the file at `path`. Options belong to a question through their ItemID. Numbers are given anew, and a loaded
// vote is open to all, whatever `topic` says. False leaves the file at `path` as it was, or as the system's copying
// left it.
bool SaveVoteFile(const VoteTopicRecord& topic, const VoteItemList& items, const VoteOptionList& options,
                  const JW_WChar* path);

// Fills in `topic` and appends to the two lists. Fields that the file doesn't hold stay as they were. A file that can't
// be copied to the temporary path gives the last vote that was worked on there. False, with nothing changed, if there
// is no topic table to read.
bool LoadVoteFile(VoteTopicRecord& topic, VoteItemList& items, VoteOptionList& options, const JW_WChar* path);
