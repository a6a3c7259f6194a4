// Paints into an enhanced metafile and reads back what was drawn, without a pixel: one line of text for each call, such
// as "text 5,10 000000 transparent one" or "pie 0,0,210,210 from 105,105 to 210,105 00FFE4".
//
// Points and rectangles are as the caller gave them, colours as 0xBBGGRR; a text's colour and background mode and a
// shape's brush are those at the time of the call.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "platform/windows/Windows.h"

class PaintRecorder {
 public:
  PaintRecorder() : m_hDc(CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr)) {}
  ~PaintRecorder() {
    if (m_hDc) Calls();
  }
  PaintRecorder(const PaintRecorder&) = delete;
  PaintRecorder& operator=(const PaintRecorder&) = delete;

  HDC dc() const { return m_hDc; }

  // Ends the recording.
  std::vector<std::string> Calls() {
    const HENHMETAFILE file = CloseEnhMetaFile(m_hDc);
    m_hDc = nullptr;
    EnumEnhMetaFile(nullptr, file, Read, this, nullptr);
    DeleteEnhMetaFile(file);
    return m_Calls;
  }

 private:
  struct State {
    COLORREF textColor = 0;
    DWORD backMode = OPAQUE;
    COLORREF brush = 0xFFFFFF;
  };

  static int CALLBACK Read(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM self) {
    reinterpret_cast<PaintRecorder*>(self)->Take(record);
    return 1;
  }

  void Take(const ENHMETARECORD* record) {
    switch (record->iType) {
      case EMR_SETTEXTCOLOR:
        m_State.textColor = As<EMRSETTEXTCOLOR>(record).crColor;
        break;
      case EMR_SETBKMODE:
        m_State.backMode = As<EMRSETBKMODE>(record).iMode;
        break;
      case EMR_CREATEBRUSHINDIRECT:
        m_Brushes[As<EMRCREATEBRUSHINDIRECT>(record).ihBrush] = As<EMRCREATEBRUSHINDIRECT>(record).lb.lbColor;
        break;
      case EMR_SELECTOBJECT:
        if (const auto brush = m_Brushes.find(As<EMRSELECTOBJECT>(record).ihObject); brush != m_Brushes.end()) {
          m_State.brush = brush->second;
        }
        break;
      case EMR_SAVEDC:
        m_Saved.push_back(m_State);
        break;
      case EMR_RESTOREDC:  // relative to the current level
        for (int i = As<EMRRESTOREDC>(record).iRelative; i < 0 && !m_Saved.empty(); ++i) {
          m_State = m_Saved.back();
          m_Saved.pop_back();
        }
        break;
      case EMR_EXTTEXTOUTW:
        TakeText(As<EMREXTTEXTOUTW>(record).emrtext, reinterpret_cast<const char*>(record));
        break;
      case EMR_PIE: {
        const auto& pie = As<EMRPIE>(record);
        m_Calls.push_back("pie " + Text(pie.rclBox) + " from " + Text(pie.ptlStart) + " to " + Text(pie.ptlEnd) + " " +
                          Hex(m_State.brush));
        break;
      }
      case EMR_RECTANGLE:
        m_Calls.push_back("rectangle " + Text(As<EMRRECTANGLE>(record).rclBox) + " " + Hex(m_State.brush));
        break;
      default:
        break;
    }
  }

  void TakeText(const EMRTEXT& text, const char* record) {
    const auto* const units = reinterpret_cast<const wchar_t*>(record + text.offString);
    char utf8[1024] = {};
    WideCharToMultiByte(CP_UTF8, 0, units, static_cast<int>(text.nChars), utf8, sizeof(utf8) - 1, nullptr, nullptr);
    m_Calls.push_back("text " + Text(text.ptlReference) + " " + Hex(m_State.textColor) +
                      (m_State.backMode == TRANSPARENT ? " transparent " : " opaque ") + utf8);
  }

  template <class Record>
  static const Record& As(const ENHMETARECORD* record) {
    return *reinterpret_cast<const Record*>(record);
  }
  static std::string Text(const POINTL& point) { return std::to_string(point.x) + "," + std::to_string(point.y); }
  // A metafile keeps the last pixel within a shape.
  static std::string Text(const RECTL& box) {
    return Text(POINTL{box.left, box.top}) + "," + Text(POINTL{box.right + 1, box.bottom + 1});
  }
  static std::string Hex(COLORREF color) {
    char digits[16];
    snprintf(digits, sizeof(digits), "%06lX", color);
    return digits;
  }

  HDC m_hDc;
  State m_State;
  std::vector<State> m_Saved;
  std::map<DWORD, COLORREF> m_Brushes;
  std::vector<std::string> m_Calls;
};
