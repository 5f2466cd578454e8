#include "controls/diagnostics/CDiagnosticsDlg.h"

#include <optional>
#include <utility>

#include "controls/api/ScannerDriver.h"
#include "controls/messages/MessageBox.h"
#include "controls/messages/OperatorWords.h"
#include "core/locale/CFormattedText.h"
#include "platform/com/boundary.h"
#include "platform/system/one_line.h"
#include "platform/ui/codes.h"
#include "platform/ui/services.h"

namespace hx {
namespace {

constexpr char kClass[] = "CDiagnosticsDlg";

constexpr uint32_t kStringNotConnected = 30;
constexpr uint32_t kStringRefused = 32;
constexpr uint32_t kStringNotInstalled = 36;
constexpr uint32_t kStringInternalError = 213;

constexpr uint32_t kGeneralGroup = 250;
constexpr uint32_t kVersionsGroup = 251;

// What a driver that has not told the properties says of it.
std::wstring TextOf(const DriverAnswer& refusal) {
    if (refusal.result != E_FAIL) return TextOrNumber(kStringNotInstalled);
    std::wstring text = FormatText(L'.', TextOrNumber(kStringRefused), {ReasonIn(refusal.description)});
    text.erase(text.find_last_not_of(L" \r\n") + 1);
    return text;
}

struct Reading {
    std::optional<MHXFamilyDeviceProperties> device;
    std::wstring failure;  // for the operator, if there is none
};

Reading Read(const ApiOperation& operation, IHXApi& api) noexcept {
    Reading reading;
    try {
        const ComPtr<IHXApiInternal> internal = InternalApiOf(operation, api);
        DriverAnswer answer = AskDriver(operation, api, SelectedScannerDriver(operation, *internal));
        if (FAILED(answer.result)) reading.failure = TextOf(answer);
        CheckAnswer(operation, answer);
        reading.device = ReadDriverProperties(std::move(answer)).device;
        return reading;
    } catch (const MException& exception) {
        operation.Log(51, exception);
    } catch (...) {
        // Of memory, which the log would need, too.
    }
    AtBoundary([&] {
        if (reading.failure.empty()) reading.failure = TextOrNumber(kStringInternalError);
        return S_OK;
    });
    return reading;
}

// A text in which no letter is a mnemonic.
std::wstring Literally(const std::wstring& text) {
    std::wstring literal;
    for (const wchar_t character : text) literal.append(character == L'&' ? 2 : 1, character);
    return literal;
}

}  // namespace

CDiagnosticsDlg::CDiagnosticsDlg()
    : m_operations(*this), m_awaiting_window(std::make_unique<Scope>(m_operations)) {}

CDiagnosticsDlg::~CDiagnosticsDlg() {
    Destroy();
    EndSession();
}

void CDiagnosticsDlg::SetApi(ComPtr<IHXApi> api) {
    if (m_operations.IsClosed()) return;
    if (m_api) m_events.Unadvise(m_api.get());
    // What was told or is being read of another one is worth nothing.
    m_operations.Interrupt();
    m_operations.Forget();
    ForgetEvents();
    m_api = std::move(api);
    if (!m_api) return;
    const Scope scope(m_operations);
    // Who is called may hand over another one.
    const ComPtr<IHXApi> held = m_api;
    const auto state = m_events.Follow(*held, MakeEventsSink().get());
    if (state) OnConnectionStateChange(*state);
}

HRESULT CDiagnosticsDlg::OnSelected() {
    m_selected = true;
    return S_OK;
}

HRESULT CDiagnosticsDlg::OnDeselected() {
    m_selected = false;
    return S_OK;
}

bool CDiagnosticsDlg::OnInitDialog() {
    std::vector<ui::AnchorRule> anchors = {{kGeneralGroup, 0, 0, 1, 0}, {kVersionsGroup, 0, 0, 1, 0}};
    for (const DiagnosticValue& row : DiagnosticValues()) {
        anchors.push_back({row.value, 0, 0, 1, 0});
        Find(row.value)->ModifyStyle(0, SS_ENDELLIPSIS);
    }
    SetAnchors(std::move(anchors));
    Reset();
    // Its end; it may be that of the page.
    const std::unique_ptr<Scope> awaiting = std::move(m_awaiting_window);
    return true;
}

void CDiagnosticsDlg::OnSize(const ui::Size& size) {
    Dialog::OnSize(size);
    if (IsCreated()) ShowWholeTexts();
}

void CDiagnosticsDlg::OnDestroy() {
    EndSession();
    Dialog::OnDestroy();
}

void CDiagnosticsDlg::EndSession() noexcept {
    m_operations.Close();
    const ComPtr<IHXApi> api = std::exchange(m_api, nullptr);
    m_events.Unadvise(api.get());
}

void CDiagnosticsDlg::OnMessage(const WindowMessage& message) {
    if (message.id != WM_HX_CONNECTION_STATE) return;
    AtBoundary([&] {
        OnConnectionStateChange(ConnectionStateOf(message));
        return S_OK;
    });
}

void CDiagnosticsDlg::OnConnectionStateChange(int32_t state) {
    if (m_operations.IsClosed() || !m_api) return;
    if (m_operations.IsRunning()) return m_operations.Keep(state);
    OnKeptConnectionState(state);
}

void CDiagnosticsDlg::OnKeptConnectionState(int32_t state) {
    if (state == m_connection_state && (state != HXConnected || !m_selected)) return;
    m_connection_state = state;
    if (state == HXConnected) {
        Fill();
    } else {
        Reset();
    }
}

void CDiagnosticsDlg::Fill() {
    static MErrorLocation location(kClass, "Fill");
    const ComPtr<IHXApi> api = m_api;
    if (!api) return;
    const Scope scope(m_operations);
    const Reading reading = Read(ApiOperation(location, this), *api);
    if (!reading.device && scope.MayGoOn()) ShowErrorText(this, location, reading.failure);
    if (!scope.IsSessionOpen()) return;
    // Another one was handed over meanwhile: whatever its state is, it is to be followed.
    if (!scope.MayGoOn()) m_connection_state = kNoState;
    if (!scope.MayGoOn() || !reading.device || reading.device->DisplayName.empty()) return Reset();
    ShowDevice(*reading.device);
}

void CDiagnosticsDlg::Reset() {
    const std::wstring text = TextOrNumber(kStringNotConnected);
    for (const DiagnosticValue& row : DiagnosticValues()) ShowText(row, text);
    ShowWholeTexts();
}

void CDiagnosticsDlg::ShowDevice(const MHXFamilyDeviceProperties& device) {
    for (const DiagnosticValue& row : DiagnosticValues()) {
        const bool exists = row.exists == nullptr || row.exists(device);
        Find(row.label)->Show(exists);
        Find(row.value)->Show(exists);
        ShowText(row, exists ? row.text(device) : TextOrNumber(kStringNotConnected));
    }
    ShowWholeTexts();
}

void CDiagnosticsDlg::ShowText(const DiagnosticValue& row, const std::wstring& text) {
    ui::Control& value = *Find(row.value);
    // There is room for one line, and more than that would be cut without a sign of it.
    const std::wstring line = OneLine(text);
    value.SetText(Literally(line));
    // No key leads to a text: whoever has the page read out is to know what it is.
    value.SetAccessibleName(ui::WithoutMnemonic(Find(row.label)->Text()) + L" " + line);
}

// What is too long for its place can be read in the tool tip.
void CDiagnosticsDlg::ShowWholeTexts() {
    for (const DiagnosticValue& row : DiagnosticValues()) {
        ui::Control& value = *Find(row.value);
        std::wstring text = ui::WithoutMnemonic(value.Text());
        const bool fits = ui::CurrentRenderer()->TextExtent(text).width <= value.Bounds().Width();
        value.SetToolTip(fits ? std::wstring() : std::move(text));
    }
}

}  // namespace hx
