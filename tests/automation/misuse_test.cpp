// Hosts whose connection does what none may do, while the component works on it: it fails, answers
// with nothing, lets the component go, shows its dialog once more, or closes itself. Whatever it
// does, the call comes back, nothing stays behind, and the next one works.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>

#include "adapters/automation/com/bstr.h"
#include "automation/hosts/host_window.h"
#include "automation/hosts/session.h"

namespace vexnumkr::test {
namespace {

using automation::ComPtr;
using automation::LateBound;

/// What a connection does at a call of that member; none where it is to do what it should.
using Prank = std::function<std::optional<HRESULT>(const std::wstring& member)>;

/// Stands before a connection, and is it but for its pranks.
class PrankingConnection final : public IDispatch {
 public:
  PrankingConnection(IDispatch* real, Prank prank) : real_(real), prank_(std::move(prank)) {}
  virtual ~PrankingConnection() = default;

  /// How often others hold it.
  ULONG references() const { return references_; }

  // Whoever asks for what it is besides gets the connection behind it.
  STDMETHODIMP QueryInterface(REFIID id, void** result) override {
    if (id != IID_IUnknown && id != IID_IDispatch) return real_->QueryInterface(id, result);
    *result = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override { return --references_; }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override { return real_->GetTypeInfoCount(count); }
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
    return real_->GetTypeInfo(index, locale, info);
  }
  STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) override {
    const HRESULT found = real_->GetIDsOfNames(id, names, count, locale, ids);
    if (SUCCEEDED(found)) names_[*ids] = *names;
    return found;
  }
  STDMETHODIMP Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* error, UINT* wrong) override {
    if (const auto outcome = prank_(names_[member])) return *outcome;
    return real_->Invoke(member, id, locale, flags, parameters, result, error, wrong);
  }

 private:
  IDispatch* real_;
  Prank prank_;
  std::map<DISPID, std::wstring> names_;
  ULONG references_ = 0;
};

// Error boxes, as a user answers them; says whether there was one.
BOOL CALLBACK closeErrorBox(HWND window, LPARAM wasThere) {
  wchar_t title[40] = {};
  GetWindowTextW(window, title, 40);
  if (!IsWindowVisible(window) || !std::wstring_view(title).starts_with(L"Fehler")) return TRUE;
  PostMessageW(window, WM_CLOSE, 0, 0);
  *reinterpret_cast<bool*>(wasThere) = true;
  return TRUE;
}

// The dialog takes nothing while there is a box before it. By Escape it always goes; its close
// button keeps it where the transaction cannot be ended.
void CALLBACK closeWhatIsShown(HWND /*window*/, UINT /*message*/, UINT_PTR /*id*/, DWORD /*time*/) {
  bool isBoxThere = false;
  EnumThreadWindows(GetCurrentThreadId(), closeErrorBox, reinterpret_cast<LPARAM>(&isBoxThere));
  const HWND dialog = visibleDialog();
  if (!isBoxThere && dialog != nullptr && IsWindowEnabled(dialog))
    PostMessageW(dialog, WM_KEYDOWN, VK_ESCAPE, 1);
}

// Those of a connection's members that the component uses until its user cancels.
constexpr const wchar_t* members[] = {L"ConnectionString", L"IsolationLevel", L"BeginTrans",
                                      L"RollbackTrans"};

// Once it has been used the library stays, whatever has become of its objects.
HRESULT canUnloadNow() {
  const HMODULE library = GetModuleHandleW(L"VEXNumKr.dll");
  if (library == nullptr) return S_OK;
  return reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
      reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")))();
}

class Misuse : public testing::Test {
 protected:
  Misuse() : timer_(SetTimer(nullptr, 0, 20, closeWhatIsShown)) {}
  ~Misuse() override { KillTimer(nullptr, timer_); }

  /// Starts the component on that connection and shows the dialog, which is closed when it is
  /// there.
  VARIANT_BOOL use(IDispatch* connection) {
    numbers_ = createNumbers();
    _VXNummernkreise* const bare = numbers_.Get();
    VARIANT_BOOL isReady = VARIANT_FALSE;
    EXPECT_EQ(bare->Init(&connection, 2, user_.get(), nullptr, &isReady), S_OK);
    if (isReady != VARIANT_FALSE && numbers_ != nullptr) {
      EXPECT_EQ(bare->ShowDialog(), S_OK);
    }
    numbers_.Reset();
    return isReady;
  }

  /// Each member plays the prank once; each time the next use is as if nothing had been.
  void playedByEachMember(const std::function<std::optional<HRESULT>()>& prank) {
    for (const wchar_t* const member : members) {
      SCOPED_TRACE(testing::Message() << member);
      bool wasPlayed = false;
      PrankingConnection connection(real_.object(),
                                    [&](const std::wstring& called) -> std::optional<HRESULT> {
                                      if (wasPlayed || called != member) return std::nullopt;
                                      wasPlayed = true;
                                      return prank();
                                    });
      use(&connection);
      EXPECT_TRUE(wasPlayed);
      EXPECT_EQ(connection.references(), 0U);
      EXPECT_EQ(visibleDialog(), nullptr);
      EXPECT_EQ(canUnloadNow(), S_FALSE);
      EXPECT_TRUE(IsWindowEnabled(host_.window()));
      real_ = openConnection();
      EXPECT_EQ(use(real_.object()), VARIANT_TRUE);
    }
  }

  const Apartment apartment_;
  const automation::Bstr user_{std::string_view("Anna")};
  LateBound real_ = openConnection();
  HostWindow host_;
  ComPtr<_VXNummernkreise> numbers_;

 private:
  UINT_PTR timer_;
};

TEST_F(Misuse, AMemberFails) {
  playedByEachMember([] { return E_FAIL; });
}

TEST_F(Misuse, AMemberAnswersNothing) {
  playedByEachMember([] { return S_OK; });
}

TEST_F(Misuse, AMemberIsNotThere) {
  playedByEachMember([] { return DISP_E_MEMBERNOTFOUND; });
}

TEST_F(Misuse, AMemberLetsTheComponentGo) {
  playedByEachMember([this] {
    numbers_.Reset();
    return std::nullopt;
  });
}

TEST_F(Misuse, AMemberShowsTheDialogOnceMore) {
  playedByEachMember([this] {
    EXPECT_EQ(numbers_->ShowDialog(), S_OK);
    return std::nullopt;
  });
}

TEST_F(Misuse, AMemberStartsTheComponentOnceMore) {
  playedByEachMember([this] {
    VARIANT_BOOL isReady = VARIANT_FALSE;
    IDispatch* connection = real_.object();
    EXPECT_EQ(numbers_->Init(&connection, 2, user_.get(), nullptr, &isReady), S_OK);
    return std::nullopt;
  });
}

TEST_F(Misuse, AMemberClosesTheConnection) {
  playedByEachMember([this] {
    real_.call("Close");
    return std::nullopt;
  });
}

TEST_F(Misuse, AMemberTakesTheHostsMessages) {
  playedByEachMember([this] {
    const int ticks = host_.ticks();
    handleMessagesUntil([&] { return host_.ticks() > ticks; });
    return std::nullopt;
  });
}

}  // namespace
}  // namespace vexnumkr::test
