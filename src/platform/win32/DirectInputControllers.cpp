#include "platform/win32/DirectInputControllers.h"

#define DIRECTINPUT_VERSION 0x0800
#include <dinput.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "base/utf16.h"
#include "platform/ConnectionOrder.h"
#include "platform/StickDevice.h"
#include "platform/win32/DirectInputResult.h"

namespace vorlent {
namespace {

static_assert(sizeof(DIJOYSTATE) == sizeof(ControllerState));
static_assert(offsetof(DIJOYSTATE, rglSlider) == offsetof(ControllerState, slider));
static_assert(offsetof(DIJOYSTATE, rgdwPOV) == offsetof(ControllerState, POV));
static_assert(offsetof(DIJOYSTATE, rgbButtons) == offsetof(ControllerState, buttons));

template <class Interface>
struct Release {
  void operator()(Interface* object) const { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Release<Interface>>;

BOOL CALLBACK collect(const DIDEVICEINSTANCEA* device, void* list) noexcept {
  static_cast<std::vector<DIDEVICEINSTANCEA>*>(list)->push_back(*device);
  return DIENUM_CONTINUE;
}

/// Empty when the driver does not tell.
std::string pathOf(IDirectInputDevice8A& device) {
  DIPROPGUIDANDPATH path{};
  path.diph = {sizeof path, sizeof path.diph, 0, DIPH_DEVICE};
  if (FAILED(device.GetProperty(DIPROP_GUIDANDPATH, &path.diph))) return {};
  const std::wstring_view wide = path.wszPath;
  return utf8OfUtf16({reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(wchar_t)});
}

bool prepare(IDirectInputDevice8A& device, HWND window) {
  DIPROPRANGE range{};
  range.diph = {sizeof range, sizeof range.diph, 0, DIPH_DEVICE};
  range.lMax = ControllerState::AxisMax;
  return SUCCEEDED(device.SetDataFormat(&c_dfDIJoystick)) &&
         SUCCEEDED(device.SetCooperativeLevel(window, DISCL_BACKGROUND | DISCL_NONEXCLUSIVE)) &&
         SUCCEEDED(device.SetProperty(DIPROP_RANGE, &range.diph));
}

}  // namespace

/// DirectInput, and the invisible window to which it binds every device.
struct DirectInputControllers::System {
  System()
      : window(CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                               GetModuleHandleA(nullptr), nullptr)) {
    void* made = nullptr;
    if (SUCCEEDED(DirectInput8Create(GetModuleHandleA(nullptr), DIRECTINPUT_VERSION,
                                     IID_IDirectInput8A, &made, nullptr)))
      input.reset(static_cast<IDirectInput8A*>(made));
  }
  ~System() {
    input.reset();
    DestroyWindow(window);
  }
  System(const System&) = delete;
  System& operator=(const System&) = delete;

  Owned<IDirectInputDevice8A> open(const GUID& instance) const {
    IDirectInputDevice8A* made = nullptr;
    if (FAILED(input->CreateDevice(instance, &made, nullptr))) return nullptr;
    Owned<IDirectInputDevice8A> device(made);
    return prepare(*device, window) ? std::move(device) : nullptr;
  }

  HWND window;
  Owned<IDirectInput8A> input;  ///< null where DirectInput 8 is not available
};

struct DirectInputControllers::Device {
  ControllerInfo info;
  Owned<IDirectInputDevice8A> device;
};

DirectInputControllers::DirectInputControllers() : system_(std::make_unique<System>()) {}
DirectInputControllers::~DirectInputControllers() = default;

std::vector<ControllerInfo> DirectInputControllers::devices() {
  devices_.clear();
  std::vector<DIDEVICEINSTANCEA> found;
  if (system_->input)
    system_->input->EnumDevices(DI8DEVCLASS_GAMECTRL, collect, &found, DIEDFL_ATTACHEDONLY);
  for (const DIDEVICEINSTANCEA& instance : found)
    if (auto device = system_->open(instance.guidInstance)) {
      std::string path = pathOf(*device);
      devices_.push_back({{instance.tszProductName, std::move(path)}, std::move(device)});
    }
  std::stable_sort(devices_.begin(), devices_.end(), [](const Device& a, const Device& b) {
    return comesBefore(a.info.connection, b.info.connection);
  });
  if (devices_.size() > Max) devices_.resize(Max);
  std::vector<ControllerInfo> list;
  for (const Device& device : devices_) list.push_back(device.info);
  return list;
}

ControllerResult DirectInputControllers::Acquire(std::size_t device) {
  if (device >= devices_.size()) return ControllerResult::Unplugged;
  return controllerResult(devices_[device].device->Acquire());
}

ControllerResult DirectInputControllers::Poll(std::size_t device) {
  if (device >= devices_.size()) return ControllerResult::Unplugged;
  return controllerResult(devices_[device].device->Poll());
}

ControllerResult DirectInputControllers::GetDeviceState(std::size_t device,
                                                        ControllerState& state) {
  if (device >= devices_.size()) return ControllerResult::Unplugged;
  std::array<char, sizeof(ControllerState)> packet;
  const HRESULT result = devices_[device].device->GetDeviceState(packet.size(), packet.data());
  // A driver may tell a centred POV as 65535 and a pressed button as any byte from 0x80 on.
  if (SUCCEEDED(result)) state = *stateFromPacket({packet.data(), packet.size()});
  return controllerResult(result);
}

}  // namespace vorlent
