// The base of all window objects, and the shape of their message maps.
//
// A window object is bound to its window by a thunk: 13 bytes of code that put the object's address in the place of
// the window handle and jump to the real procedure. So the object is known from the first message on, and nothing is
// stored in the window.
//
//   class Panel : public RegisteredWindow<Panel>, public VoteListener {   // WindowBase comes first
//    public:
//     static WindowClassInfo& WindowClass() {
//       static WindowClassInfo info = DescribeWindowClass(nullptr, CS_DBLCLKS, COLOR_WINDOW + 1);
//       return info;
//     }
//     bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
//                               DWORD mapId) override;
//
//    private:
//     LRESULT OnPaint(MessageArgs& args);
//   };
//
//   bool Panel::ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result, DWORD) {
//     MessageMap map(this, window, message, wParam, lParam, result);
//     return map.On(WM_PAINT, &Panel::OnPaint) ||
//            map.OnCommand(IDC_CLOSE, &Panel::OnClose) ||
//            map.ReflectToChild();
//   }
//
// A handler returns the message's result; it clears args.handled to let the chain go on, at the end of which the
// message goes to the default procedure. An object and its window belong to the thread that created the window. The
// object's owner deletes it; a window that ends leaves its object alone. A handler may destroy its own window, and
// even delete its own object if it touches nothing afterwards.
#pragma once

#include "platform/windows/Windows.h"
#include "toolkit/WindowClassInfo.h"

class WindowBase;

// A notification that came back to its child is the notification's number plus this.
constexpr UINT kReflected = 0x2000;

// A message under way.
struct WindowMessage {
  HWND Window;
  UINT Message;
  WPARAM WParam;
  LPARAM LParam;
};

// What a handler gets.
struct MessageArgs : WindowMessage {
  bool handled = true;  // a handler clears it to let the chain go on

  // Signed coordinates of a mouse message.
  POINT Point() const { return {static_cast<short>(LOWORD(LParam)), static_cast<short>(HIWORD(LParam))}; }
  // Of WM_COMMAND.
  UINT Id() const { return LOWORD(WParam); }
  UINT Code() const { return HIWORD(WParam); }
  HWND Control() const { return reinterpret_cast<HWND>(LParam); }
  // Of WM_NOTIFY; T is the notification's structure, which begins with an NMHDR.
  template <class T = NMHDR>
  T* Notification() const {
    return reinterpret_cast<T*>(LParam);
  }
};

// A window object waiting for its window's first message.
struct CreateData {
  WindowBase* Object;
  DWORD ThreadId;
  CreateData* Next;
};

// One pass through an object's window procedure. It learns when the object ends in the middle of it.
class DispatchFrame {
 public:
  explicit DispatchFrame(WindowBase* object);
  ~DispatchFrame();
  DispatchFrame(const DispatchFrame&) = delete;
  DispatchFrame& operator=(const DispatchFrame&) = delete;

  bool ObjectGone() const { return m_pObject == nullptr; }

 private:
  friend class WindowBase;

  WindowBase* m_pObject;
  DispatchFrame* m_pOuter;
};

class WindowBase {
 public:
  HWND m_hWnd = nullptr;

 private:
  unsigned char* m_thunk = nullptr;  // in executable memory of the toolkit

 protected:
  const WindowMessage* m_pCurrentMsg = nullptr;  // null outside a dispatch
  WNDPROC m_pfnSuperWindowProc = &DefWindowProcW;

 public:
  WindowBase() = default;
  WindowBase(const WindowBase&) = delete;
  WindowBase& operator=(const WindowBase&) = delete;

  // True if the message was handled, with its result in `result`. `mapId` is 0.
  virtual bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                                    DWORD mapId) = 0;
  // What the thunk jumps to.
  virtual WNDPROC GetWindowProc();
  // The window is gone; m_hWnd is null already. An object may delete itself here.
  virtual void OnFinalMessage(HWND window);
  // A window that still lives is destroyed without reaching the object again.
  virtual ~WindowBase();

  // The default handling of a message by the window's class.
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  // The same for the message being handled.
  LRESULT DefWindowProc();
  const WindowMessage* CurrentMessage() const { return m_pCurrentMsg; }

  // Puts the object before the procedure of a window that exists already, until the window ends or UnsubclassWindow.
  // False if the object has a window or no memory is left.
  bool SubclassWindow(HWND window);
  // Takes the object out again and returns its window; null if another procedure was put before it since.
  HWND UnsubclassWindow();

  // Destroys the window, if there is one.
  void DestroyWindow();

 protected:
  // Creates the window of this object; null if that fails, with the object as it was. `rect` null stands for an empty
  // rectangle. A child without an id gets the object's address as its id.
  HWND CreateOfClass(WindowClassInfo& info, HWND parent, const RECT* rect, const wchar_t* title, DWORD style,
                     DWORD exStyle, UINT_PTR menuOrId);

  // The three steps of a creation of whatever kind. BeginCreation puts the object at the head of the list of windows
  // being created; false if it has a window or if no memory is left. The window's first message takes the newest
  // object of its thread from the list (null if there is none) and binds it. EndCreation takes the object back from
  // the list if no message came; Created does that too and returns the window if it is bound, else destroys it.
  bool BeginCreation();
  static WindowBase* TakeCreated();
  void EndCreation();
  HWND Created(HWND window);
  // Gives the object its window, sends the window's messages to it from now on and returns the procedure for them.
  // `procedureIndex` tells which procedure of the window that is. Null if that fails, with nothing changed.
  WNDPROC Bind(HWND window, int procedureIndex);

  // Runs the message map with the current message set. `frame` tells whether the object outlived it.
  bool RunMessageMap(const WindowMessage& message, LRESULT& result, const DispatchFrame& frame);
  // The window is over: forgets it and tells the object, which may end by that.
  void FinishWindow(HWND window);

 private:
  friend class DispatchFrame;
  friend class MessageMapBase;
  friend LRESULT CALLBACK StartWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  friend void TermToolkit();

  // The window's procedure as the thunk calls it: the first argument is the object.
  static LRESULT CALLBACK WindowProc(HWND object, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Dispatch(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT EndWindow(const WindowMessage& message, const DispatchFrame& frame);

  // Takes the object out of its window's procedures.
  void LetWindowGo();
  // Destroys a window that was let go, and forgets it and the thunk.
  void ForgetWindow();

  CreateData m_Create = {};
  DispatchFrame* m_pFrames = nullptr;  // innermost first
};

// A window of the class that T::WindowClass() describes. A class derived from T keeps T's window class.
template <class T>
class RegisteredWindow : public WindowBase {
 public:
  HWND Create(HWND parent, const RECT* rect = nullptr, const wchar_t* title = nullptr, DWORD style = 0,
              DWORD exStyle = 0, UINT_PTR menuOrId = 0) {
    return CreateOfClass(T::WindowClass(), parent, rect, title, style, exStyle, menuOrId);
  }
};

// What a message map needs of its window, whatever its type.
class MessageMapBase {
 public:
  // Sends a child's notification back to it, as the message plus kReflected. False if the message is none, or names no
  // child.
  bool ReflectToChild();
  // The default handling of a notification that came back and that nobody used.
  bool DefaultReflected();

 protected:
  MessageMapBase(WindowBase* object, HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
      : m_Args{{window, message, wParam, lParam}}, m_pObject(object), m_pFrame(object->m_pFrames), m_Result(result) {}

  bool IsCommand(UINT first, UINT last) const {
    return m_Args.Message == WM_COMMAND && m_Args.Id() >= first && m_Args.Id() <= last;
  }
  bool IsNotify(UINT code) const { return m_Args.Message == WM_NOTIFY && m_Args.Notification()->code == code; }
  // Whether the chain ends here: the message is handled, or its object is no more.
  bool Ends() const { return m_Args.handled || (m_pFrame && m_pFrame->ObjectGone()); }

  MessageArgs m_Args;
  WindowBase* m_pObject;
  const DispatchFrame* m_pFrame;
  LRESULT& m_Result;
};

// A chain of comparisons, joined by ||. Each operation is true if the message is handled by it.
template <class T>
class MessageMap : public MessageMapBase {
 public:
  using Handler = LRESULT (T::*)(MessageArgs&);

  MessageMap(T* object, HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
      : MessageMapBase(object, window, message, wParam, lParam, result), m_pTarget(object) {}

  bool On(UINT message, Handler handler) { return m_Args.Message == message && Call(handler); }
  bool OnRange(UINT first, UINT last, Handler handler) {
    return m_Args.Message >= first && m_Args.Message <= last && Call(handler);
  }
  bool OnCommand(UINT id, Handler handler) { return IsCommand(id, id) && Call(handler); }
  bool OnCommand(UINT id, UINT code, Handler handler) {
    return IsCommand(id, id) && m_Args.Code() == code && Call(handler);
  }
  bool OnCommandRange(UINT first, UINT last, Handler handler) { return IsCommand(first, last) && Call(handler); }
  bool OnNotify(UINT_PTR id, UINT code, Handler handler) {
    return IsNotify(code) && m_Args.Notification()->idFrom == id && Call(handler);
  }
  bool OnNotifyCode(UINT code, Handler handler) { return IsNotify(code) && Call(handler); }
  // A notification of this window that its parent sent back, by the number it had at first.
  bool OnReflected(UINT message, Handler handler) { return On(message + kReflected, handler); }

 private:
  bool Call(Handler handler) {
    m_Args.handled = true;
    const LRESULT result = (m_pTarget->*handler)(m_Args);
    if (!Ends()) return false;
    m_Result = result;
    return true;
  }

  T* m_pTarget;
};
