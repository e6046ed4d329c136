#pragma once
// bugreport: sends a problem report by e-mail — one message with a body and
// every file of a pack directory attached — through the SMTP server the
// environment names:
//   TONEWRIGHT_SMTP_URL       smtp://host:port or smtps://host:port (required)
//   TONEWRIGHT_SMTP_USER      user name, when the server wants one
//   TONEWRIGHT_SMTP_PASSWORD  its password
//   TONEWRIGHT_SMTP_FROM      the sender (tonewright@localhost by default)
// Without a server it sends nothing and says so, and the caller falls back
// to the desktop's mail client. Synchronous; any thread.

#ifdef __cplusplus
extern "C" {
#endif

enum
{
    BUGREPORT_OK = 0,
    BUGREPORT_E_NO_SERVER = -1, // TONEWRIGHT_SMTP_URL is not set
    BUGREPORT_E_ARGUMENT = -2,  // a null argument or no recipient
    BUGREPORT_E_SEND = -3,      // the server could not be reached or refused the message
    BUGREPORT_E_PACK = -4       // a file of the pack could not be read
};

// Sends the message; BUGREPORT_OK or a negative code. All texts are UTF-8
// (8-bit); pszPackDir may be empty (no attachments).
int sendBugInf(const char* pszTo, const char* pszSubject, const char* pszBody,
               const char* pszPackDir);

#ifdef __cplusplus
}
#endif
