# What is delivered: `cmake --install BUILD --prefix dist` adds the headers, and on Linux the portable core, to the
# libraries that the Windows build puts there itself.
set(contract_headers JW_Base/Include/JW_Array.h JW_Base/Include/JW_ByteStream.h JW_Base/Include/JW_DateTimeEx.h
                     JW_Base/Include/JW_ID.h JW_Base/Include/JW_List.h JW_Base/Include/JW_Map.h
                     JW_Base/Include/JW_Memory.h JW_Base/Include/JW_Plex.h JW_Base/Include/JW_String.h
                     JW_Base/Include/JW_Types.h records/VoteRecords.h records/VoteRecordCodec.h
                     records/VoteRecordLayout.h module/IZQVote.h module/IZQVoteSink.h)
# What a server on Linux needs beyond the contract.
set(server_headers
    JW_Base/Include/JW_CodePage.h JW_Base/Include/JW_Utf8.h files/VoteFile.h module/HeadlessVote.h
    module/VoteInterface.h platform/Resources.h platform/posix/CodePageChoice.h platform/posix/TextTable.h
    votedata/VoteData.h votedata/VoteEntries.h votedata/VoteListener.h votedata/VoteUi.h)

function(install_headers)
  foreach(header ${ARGN})
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "${PROJECT_SOURCE_DIR}/${header}" DESTINATION "include/${folder}")
  endforeach()
endfunction()

install_headers(${contract_headers})
if(NOT WIN32)
  install_headers(${server_headers})
  install(TARGETS zqvote_core zqvote_sqlite ARCHIVE DESTINATION lib)
endif()
