#pragma once
// The keys of the program's settings store: each spelled once, here.

namespace settingskeys {

// True while the program runs; a start that finds it true had a crash before.
inline constexpr char kCrashFlag[] = "crashFlag";

// The code of the language chosen from the menu ("fr", "ja", ...); none
// until one is chosen, when the system's language is taken.
inline constexpr char kLanguage[] = "Language";

// The key of the kind of ringtone "Start to Create" writes ("iphone", "ogg"...).
inline constexpr char kRingtoneKind[] = "Ringtone/Kind";

// The "Normalize" choice: "off", "standard" or "loud".
inline constexpr char kRingtoneNormalize[] = "Ringtone/Normalize";

inline constexpr char kProxyUse[] = "Proxy/useProxy";
inline constexpr char kProxyHost[] = "Proxy/Host";
inline constexpr char kProxyPort[] = "Proxy/Port";
inline constexpr char kProxyType[] = "Proxy/Type";
inline constexpr char kProxyUserName[] = "Proxy/UserName";
inline constexpr char kProxyPassWord[] = "Proxy/PassWord";

inline constexpr char kUpdateAuto[] = "Update/AutoUpdate";
inline constexpr char kUpdateInterval[] = "Update/Interval";
inline constexpr char kUpdateTime[] = "Update/UpdateTime";

} // namespace settingskeys
