// Ids of everything that a resource module holds: strings, bitmaps, dialogs and their controls,
// the menu and its commands. The module and its resource modules share this header, so it is read
// by the compiler and by the resource compiler, and must hold nothing but comments and
// "#define NAME number" lines.
//
// A host that brings its own resource module must provide every string and bitmap listed here.
// A remark that begins with "%d", once or more, says that the text is a format for that many integers.
#pragma once

// Strings.

// Face name of the shared fonts; a font that every system of the language has.
#define IDS_FONT_FACE 0xF1C9

// Captions of message boxes and of the question dialog.
#define IDS_CAPTION_NOTICE 0xF1B4
#define IDS_CAPTION_VOTE 0xF1F6
#define IDS_CAPTION_EDIT_ITEM 0xF203  // Also the name of the question dialog's accelerator table.
#define IDS_CAPTION_ADD_ITEM 0xF207

// Main toolbar: captions 40 px wide at most (36 for "modify"), and tooltips.
#define IDS_BUTTON_NEW_VOTE 0xF1CB
#define IDS_BUTTON_EXPORT_VOTE 0xF1CE
#define IDS_BUTTON_IMPORT_VOTE 0xF1CF
#define IDS_BUTTON_MODIFY_VOTE 0xF1D1
#define IDS_TIP_NEW_VOTE 0xF1EB
#define IDS_TIP_EXPORT_VOTE 0xF1EF
#define IDS_TIP_IMPORT_VOTE 0xF1F0
#define IDS_TIP_MODIFY_VOTE 0xF1F2

// A vote's toolbar; each remark is the button's width in pixels.
#define IDS_BUTTON_START_VOTE 0xF1CC      // 68
#define IDS_BUTTON_STOP_VOTE 0xF1D0       // 68; takes the place of "start" while the vote runs.
#define IDS_BUTTON_PUBLISH_RESULT 0xF1D2  // 68
#define IDS_BUTTON_ADD_ITEM 0xF1D3        // 79
#define IDS_BUTTON_FETCH_RESULT 0xF1D4    // 68
#define IDS_BUTTON_RESET_VOTE 0xF1D7      // 79
#define IDS_BUTTON_CHOOSE_VOTERS 0xF1D8   // 94
#define IDS_BUTTON_CHOOSE_VIEWERS 0xF1D9  // 113

// The two faces of the information panel's fold button, 81 px wide, named by what a click does.
#define IDS_TIP_HIDE_DETAILS 0xF1D5
#define IDS_TIP_SHOW_DETAILS 0xF1D6
#define IDS_BUTTON_HIDE_DETAILS 0xF1DA  // m_btnUnfold, which stands on the unfolded panel.
#define IDS_BUTTON_SHOW_DETAILS 0xF1DB  // m_btnFold, which stands on the folded panel.

// Labels; a value follows at once, so each ends as a label before a value does.
#define IDS_LABEL_TOPIC 0xF1DD
#define IDS_LABEL_DESCRIPTION 0xF1DE
#define IDS_LABEL_STATE 0xF1DF  // IDS_VOTE_STOPPED or IDS_VOTE_STARTED follows.
#define IDS_LABEL_TIME_LEFT 0xF1E0
#define IDS_LABEL_ITEM_COUNT 0xF1E1
#define IDS_LABEL_ACTIVE_ITEM_COUNT 0xF1E2  // Panel: questions open; report: questions answered.
#define IDS_LABEL_CREATOR 0xF1E3
#define IDS_LABEL_MANAGER 0xF1E4
#define IDS_LABEL_ITEM_ID 0xF218
#define IDS_LABEL_ITEM_NAME 0xF219
#define IDS_LABEL_TOPIC_ID 0xF21C
#define IDS_LABEL_TYPE 0xF239

// Who takes part in a vote: parts of the panel's flag line. The four about voting and viewing also
// confirm a choice of participants as a text of their own.
#define IDS_FLAG_ALL_VOTE 0xF1E5
#define IDS_FLAG_ALL_VIEW 0xF1E6
#define IDS_FLAG_SIGNED 0xF1E7
#define IDS_FLAG_UNSIGNED 0xF1E8
#define IDS_FLAG_CHOSEN_VOTE 0xF1E9
#define IDS_FLAG_CHOSEN_VIEW 0xF1EA

// State of a vote and of a question. They stand behind IDS_LABEL_STATE, and alone on the second
// line of the message that a vote was stopped or started.
#define IDS_VOTE_STOPPED 0xF200
#define IDS_VOTE_STARTED 0xF201

// The panel's time left.
#define IDS_TIME_LAST_MINUTE 0xF1FE  // Also past the end of the time.
#define IDS_TIME_NOT_STARTED 0xF1FF
#define IDS_TIME_STOPPED 0xF202  // Also for a vote that was never started.
#define IDS_TIME_MINUTES 0xF235  // Follows a number of minutes.
#define IDS_USER_ABSENT 0xF23F   // In place of the name of somebody who isn't in the conference.

// A question's page.
#define IDS_NO_ANSWERS 0xF1F4
#define IDS_ANSWER_UNIT 0xF1F5         // Follows a count of answers or voters and a blank.
#define IDS_BUTTON_SUBMIT 0xF20E       // 81 px
#define IDS_BUTTON_OPEN_ITEM 0xF20F    // 50 px
#define IDS_BUTTON_CLOSE_ITEM 0xF210   // 50 px
#define IDS_BUTTON_REMOVE_ITEM 0xF211  // 50 px
#define IDS_BUTTON_EDIT_ITEM 0xF212    // 50 px
#define IDS_BUTTON_SIGN_NAMES 0xF21A   // 81 px; opens the list of who answered what.
#define IDS_LABEL_ITEM_NUMBER 0xF213   // The question's number and a colon follow.
#define IDS_LABEL_OPTIONS 0xF23C       // Stands alone above the options.

// Kinds of a question; also cells of an 80 px column.
#define IDS_TYPE_SINGLE 0xF214
#define IDS_TYPE_MULTIPLE 0xF215  // IDS_LIMIT_MOST or IDS_LIMIT_NONE may follow at once.
#define IDS_TYPE_FIXED 0xF216
#define IDS_LIMIT_MOST 0xF234   // %d
#define IDS_LIMIT_NONE 0xF236   // Also the first entry of the question dialog's limit box.
#define IDS_LIMIT_ENTRY 0xF237  // %d; the further entries of that box.

// The question dialog.
#define IDS_FIXED_OPTION_YES 0xF208
#define IDS_FIXED_OPTION_NO 0xF209
#define IDS_ERROR_OPTION_LIMIT 0xF1FA
#define IDS_ERROR_ITEM_INCOMPLETE 0xF20D
#define IDS_ERROR_OPTION_DOUBLE 0xF29D
#define IDS_ERROR_OPTION_LENGTH 0xF2A7
#define IDS_ERROR_OPTION_EMPTY 0xF42B

// The topic dialog.
#define IDS_DEFAULT_VOTE_NAME 0xF1FB   // A running number follows.
#define IDS_ERROR_NUMBER_RANGE 0xF1FC  // %d %d: smallest and largest number.
#define IDS_ERROR_NO_ITEMS 0xF20C      // Also answers the export of a vote without questions.
#define IDS_ERROR_NAME_LENGTH 0xF222   // %d
#define IDS_ERROR_DURATION 0xF230      // IDS_ERROR_NUMBER_RANGE may follow on a second line.
#define IDS_ERROR_NAME_EMPTY 0xF41E
#define IDS_MANAGER_CHANGED 0xF432  // The dialog to save a file opens next.
#define IDS_HEADER_ITEM_ID 0xF238
#define IDS_HEADER_HAS_OPTIONS 0xF23A
#define IDS_HEADER_ITEM_NAME 0xF23B
#define IDS_HEADER_ITEM_TYPE 0xF240
#define IDS_HAS_OPTIONS_YES 0xF23D
#define IDS_HAS_OPTIONS_NO 0xF23E

// The table of signed answers; the report has the three headers too.
#define IDS_TOTAL 0xF226          // " : ", the number of voters and IDS_ANSWER_UNIT follow.
#define IDS_HEADER_OPTION 0xF227  // The option's letter follows.
#define IDS_HEADER_VOTER_ID 0xF228
#define IDS_HEADER_VOTER_NAME 0xF229

// The report.
#define IDS_REPORT_HEADING 0xF22D
#define IDS_REPORT_TITLE 0xF22E
#define IDS_LABEL_REPORT_DATE 0xF22F

// Questions to the user.
#define IDS_PROMPT_DELETE_VOTE 0xF1F7  // Yes deletes, No keeps.
#define IDS_PROMPT_REMOVE_ITEM 0xF1F8  // Yes deletes, No keeps.
#define IDS_PROMPT_START_VOTE 0xF21B   // Yes drops earlier answers, No keeps them, Cancel starts nothing.

// Messages.
#define IDS_STATUS_NOT_MANAGER 0xEFFD  // The host is handed the bare number.
#define IDS_STATUS_ITEMS_LEFT 0xF21D   // %d
#define IDS_STATUS_ALL_ANSWERED 0xF21E
#define IDS_ERROR_LOAD_FILE 0xF223
#define IDS_ERROR_SAVE_FILE 0xF225
#define IDS_STATUS_NO_VOTE 0xF2EA
#define IDS_STATUS_NO_RIGHT 0xF343  // The host may be handed the bare number.
#define IDS_STATUS_RESULT_PUBLISHED 0xF36D
#define IDS_STATUS_STARTED_MEANWHILE 0xF377
#define IDS_STATUS_NO_RESULT 0xF3EF
#define IDS_STATUS_VOTE_FAILED 0xF3F0
#define IDS_STATUS_NOT_VIEWER 0xF3F1
#define IDS_STATUS_ITEM_LIMIT 0xF42A  // %d
#define IDS_STATUS_VOTE_LIMIT 0xF42C  // %d

// Bitmaps. A remark gives the size of one frame and the frames in their order.

// Main toolbar: normal, pushed, hot, disabled.
#define IDB_BUTTON_IMPORT_VOTE 0x12F  // 58 x 25
#define IDB_BUTTON_MODIFY_VOTE 0x130  // 58 x 25
#define IDB_BUTTON_NEW_VOTE 0x131     // 58 x 25
#define IDB_BUTTON_EXPORT_VOTE 0x132  // 65 x 25
#define IDB_BUTTON_EXPORT_MENU 0x134  // 65 x 25; shown while the pointer is on the drop-down part.

// Frame of the main window, in the order of painting; the caps keep their size, the rest is
// stretched.
#define IDB_FRAME_HEADER_LEFT 0x16E    // 8 x 33
#define IDB_FRAME_HEADER_MIDDLE 0x16C  // 33 high
#define IDB_FRAME_HEADER_RIGHT 0x170   // 8 x 33
#define IDB_FRAME_LEFT 0x172           // 3 wide
#define IDB_FRAME_RIGHT 0x175          // 3 wide
#define IDB_FRAME_BOTTOM 0x1D9         // 3 high

// Tabs.
#define IDB_TAB_CLOSE 0x12C       // 15 x 15: normal, hot, pushed, disabled.
#define IDB_TAB 0x12D             // 111 x 28: normal, hot, selected.
#define IDB_TAB_BACKGROUND 0x14E  // 1 x 28
#define IDB_TAB_MENU 0x15D        // 24 x 28: normal, hot, pushed, disabled.
#define IDB_TAB_PREVIOUS 0x15F    // 33 x 28: normal, hot, pushed, disabled.
#define IDB_TAB_NEXT 0x160        // 17 x 28: normal, hot, pushed, disabled.

// A vote's toolbar: normal, hot, pushed, disabled.
#define IDB_TOOL_START_VOTE 0x1D8      // 68 x 22; also "stop".
#define IDB_TOOL_ADD_ITEM 0x162        // 79 x 22
#define IDB_TOOL_FETCH_RESULT 0x163    // 68 x 22
#define IDB_TOOL_PUBLISH_RESULT 0x1DA  // 68 x 22
#define IDB_TOOL_RESET_VOTE 0x165      // 79 x 22
#define IDB_TOOL_CHOOSE_VOTERS 0x166   // 94 x 22
#define IDB_TOOL_CHOOSE_VIEWERS 0x167  // 113 x 22

// The fold button of the information panel, named by what a click does: normal, hot, pushed.
#define IDB_INFO_SHOW_DETAILS 0x16B  // m_btnFold; 24 high.
#define IDB_INFO_HIDE_DETAILS 0x16D  // m_btnUnfold; 24 high.

// A question's page. Marks: live, live and chosen, dead and chosen, dead.
#define IDB_MARK_MULTIPLE 0x150  // 15 x 15
#define IDB_MARK_SINGLE 0x151    // 15 x 15
// Buttons: normal, hot, pushed, disabled.
#define IDB_ITEM_DOWN 0x152    // 27 x 27
#define IDB_ITEM_UP 0x153      // 27 x 27
#define IDB_ITEM_BUTTON 0x1DB  // 50 x 27; open or close, edit, delete.
#define IDB_SIGN_NAMES 0x168   // 81 x 22
#define IDB_SUBMIT 0x169       // 81 x 22

// Dialogs and their controls.

#define IDD_SIGN_NAME 0x26B
#define IDD_VOTE_TOPIC 0x271
#define IDD_VOTE_ITEM 0x28D

// IDD_VOTE_TOPIC, beside OK and Cancel.
#define IDC_TOPIC_NAME 0x464
#define IDC_TOPIC_MINUTES 0x480
#define IDC_TOPIC_MINUTES_SPIN 0x483
#define IDC_TOPIC_SIGN 0x486
#define IDC_TOPIC_ADD_MULTIPLE 0x49B
#define IDC_TOPIC_EDIT_ITEM 0x49E
#define IDC_TOPIC_DELETE_ITEM 0x4A0
#define IDC_TOPIC_ADD_SINGLE 0x4A5
#define IDC_TOPIC_ADD_FIXED 0x4A6
#define IDC_TOPIC_ITEMS 0x4AE
#define IDC_TOPIC_SAVE 0x4B2

// IDD_VOTE_ITEM, beside OK and Cancel.
#define IDC_ITEM_OPTION 0x3F7
#define IDC_ITEM_ADD_OPTION 0x40A
#define IDC_ITEM_OPTIONS 0x40C
#define IDC_ITEM_DELETE_OPTION 0x40E
#define IDC_ITEM_EDIT_OPTION 0x411
#define IDC_ITEM_OPTION_UP 0x416
#define IDC_ITEM_TYPE_SINGLE 0x41C
#define IDC_ITEM_TYPE_MULTIPLE 0x420
#define IDC_ITEM_TYPE_FIXED 0x422
#define IDC_ITEM_OPTION_DOWN 0x42A
#define IDC_ITEM_NAME 0x435
#define IDC_ITEM_LIMIT 0x49D
#define IDC_ITEM_INPLACE 0x4C4  // Hidden; edits an option within the list.

// IDD_SIGN_NAME, beside OK and Cancel.
#define IDC_SIGN_LIST 0x452
#define IDC_SIGN_RESERVED 0x46E  // A button without effect.
#define IDC_SIGN_TOPIC_ID 0x489
#define IDC_SIGN_ITEM_ID 0x48D
#define IDC_SIGN_TOPIC_NAME 0x491
#define IDC_SIGN_ITEM_NAME 0x494

// Controls that the windows make themselves.
#define IDC_TAB_PREVIOUS 0x1
#define IDC_TAB_NEXT 0x2
#define IDC_TAB_MENU 0x3
#define IDC_TAB_CLOSE 0x1  // A child of the tab control, the three above are children of the tab bar.
#define IDC_TAB_FLAT_BUTTON 0x1D4C
#define IDC_SPIN_DOWN 0x2328
#define IDC_SPIN_UP 0x2329
#define IDC_INFO_FOLD 0x1623  // Both faces of the fold button.

// Menus and commands.

#define IDM_EXPORT 0x2A6  // Its first submenu drops down from the export button.

// Commands of the main toolbar, which are the ids of its buttons too.
#define IDM_NEW_VOTE 0x1F40
#define IDM_MODIFY_VOTE 0x1F41
#define IDM_DELETE_VOTE 0x1F42  // Has no button; a menu of the host may send it.
#define IDM_IMPORT_VOTE 0x1F43
#define IDM_EXPORT_VOTE 0x1F44

// Commands of the export menu.
#define IDM_EXPORT_FILE 0x814B
#define IDM_EXPORT_REPORT 0x814C

// Commands of the menu of all votes: the first is the first tab's.
#define IDM_VOTE_FIRST 0x4
#define IDM_VOTE_LAST 0x68
