<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version: </source>
        <translation>Version: </translation>
    </message>
</context>
<context>
    <name>CCrashReportDlg</name>
    <message>
        <source>Problem Report for Tonewright</source>
        <translation>Problem Report for Tonewright</translation>
    </message>
    <message>
        <source>If you found any problem with Tonewright.</source>
        <translation>If you found any problem with Tonewright.</translation>
    </message>
    <message>
        <source>Tonewright quitted unexpectedly last time.</source>
        <translation>Tonewright quitted unexpectedly last time.</translation>
    </message>
    <message>
        <source>Please click &amp;quot;Send report&amp;quot; to Email the report to us. </source>
        <translation>Please click &amp;quot;Send report&amp;quot; to Email the report to us. </translation>
    </message>
    <message>
        <source>Your report will help Vandrel improve this software. Your personal information will not be included in this report.</source>
        <translation>Your report will help Vandrel improve this software. Your personal information will not be included in this report.</translation>
    </message>
    <message>
        <source>For more product support, visit </source>
        <translation>For more product support, visit </translation>
    </message>
    <message>
        <source>Send Report</source>
        <translation>Send Report</translation>
    </message>
    <message>
        <source>[Please describe your problem here.]</source>
        <translation>[Please describe your problem here.]</translation>
    </message>
</context>
<context>
    <name>CFilterEdit</name>
    <message>
        <source>All</source>
        <translation>All</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Search in</source>
        <translation>Search in</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Search</translation>
    </message>
</context>
<context>
    <name>CHelloWnd</name>
    <message>
        <source>Learn More</source>
        <translation>Learn More</translation>
    </message>
</context>
<context>
    <name>CLibraryModel</name>
    <message>
        <source>ITunes</source>
        <translation>ITunes</translation>
    </message>
    <message>
        <source>Loading library…</source>
        <translation>Loading library…</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Library</translation>
    </message>
    <message>
        <source>PlayList</source>
        <translation>PlayList</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Music</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Movies</translation>
    </message>
    <message>
        <source>Ringtones</source>
        <translation>Ringtones</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>TV Shows</translation>
    </message>
    <message>
        <source>Podcasts</source>
        <translation>Podcasts</translation>
    </message>
    <message>
        <source>Purchased</source>
        <translation>Purchased</translation>
    </message>
</context>
<context>
    <name>CMainWnd</name>
    <message>
        <source>Open File</source>
        <translation>Open File</translation>
    </message>
    <message>
        <source>Media Files (*.*)</source>
        <translation>Media Files (*.*)</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Play</translation>
    </message>
    <message>
        <source>Preview Selected</source>
        <translation>Preview Selected</translation>
    </message>
    <message>
        <source>A ringtone named &quot;%1&quot; is already in your library.&lt;br&gt;Replace it?</source>
        <translation>A ringtone named &quot;%1&quot; is already in your library.&lt;br&gt;Replace it?</translation>
    </message>
    <message>
        <source>I am creating a ringtone %1 with Tonewright. </source>
        <translation>I am creating a ringtone %1 with Tonewright. </translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Windows</translation>
    </message>
    <message>
        <source>Ctrl+M</source>
        <translation>Ctrl+M</translation>
    </message>
    <message>
        <source>Ctrl+F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Ctrl+A</source>
        <translation>Ctrl+A</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>Extras</translation>
    </message>
    <message>
        <source>Frontward</source>
        <translation>Frontward</translation>
    </message>
    <message>
        <source>Backward  </source>
        <translation>Backward  </translation>
    </message>
    <message>
        <source>Show or Hide Music Cover, Video Preview Box</source>
        <translation>Show or Hide Music Cover, Video Preview Box</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Open Files</translation>
    </message>
    <message>
        <source>Timeline Zoom Out</source>
        <translation>Timeline Zoom Out</translation>
    </message>
    <message>
        <source>Timeline Zoom In</source>
        <translation>Timeline Zoom In</translation>
    </message>
    <message>
        <source>Set as Start Time</source>
        <translation>Set as Start Time</translation>
    </message>
    <message>
        <source>Set as End Time</source>
        <translation>Set as End Time</translation>
    </message>
    <message>
        <source>Voice Zoom Out</source>
        <translation>Voice Zoom Out</translation>
    </message>
    <message>
        <source>Voice Zoom In</source>
        <translation>Voice Zoom In</translation>
    </message>
    <message>
        <source>Quit Editing</source>
        <translation>Quit Editing</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>Fade out</translation>
    </message>
    <message>
        <source>Fade  in</source>
        <translation>Fade  in</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Start Time</translation>
    </message>
    <message>
        <source>End  Time</source>
        <translation>End  Time</translation>
    </message>
    <message>
        <source>Start to Create</source>
        <translation>Start to Create</translation>
    </message>
    <message>
        <source>Tweet Your Ringtone</source>
        <translation>Tweet Your Ringtone</translation>
    </message>
    <message>
        <source>Find us on Facebook</source>
        <translation>Find us on Facebook</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Save As</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimize</translation>
    </message>
    <message>
        <source>Bring All to Front</source>
        <translation>Bring All to Front</translation>
    </message>
    <message>
        <source>About</source>
        <translation>About</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Support</translation>
    </message>
    <message>
        <source>Help Topic</source>
        <translation>Help Topic</translation>
    </message>
    <message>
        <source>Crash Report</source>
        <translation>Crash Report</translation>
    </message>
    <message>
        <source>Find us on &amp;Facebook</source>
        <translation>Find us on &amp;Facebook</translation>
    </message>
    <message>
        <source>Find us on &amp;Twitter</source>
        <translation>Find us on &amp;Twitter</translation>
    </message>
    <message>
        <source>Vandrel &amp;Clipwell</source>
        <translation>Vandrel &amp;Clipwell</translation>
    </message>
    <message>
        <source>Vandrel &amp;Discwell</source>
        <translation>Vandrel &amp;Discwell</translation>
    </message>
    <message>
        <source>Check &amp;Upgrade</source>
        <translation>Check &amp;Upgrade</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Option</translation>
    </message>
    <message>
        <source>Tonewright</source>
        <translation>Tonewright</translation>
    </message>
    <message>
        <source>Network connection failure,&lt;br&gt;please check the validity of the proxy.</source>
        <translation>Network connection failure,&lt;br&gt;please check the validity of the proxy.</translation>
    </message>
    <message>
        <source>The url is invalid</source>
        <translation>The url is invalid</translation>
    </message>
    <message>
        <source>Sorry, the product information can&apos;t be found.</source>
        <translation>Sorry, the product information can&apos;t be found.</translation>
    </message>
    <message>
        <source>The selection is %1 seconds long. Phones refuse this kind of ringtone when it is longer than %2 seconds.&lt;br&gt;Create it anyway?</source>
        <translation>The selection is %1 seconds long. Phones refuse this kind of ringtone when it is longer than %2 seconds.&lt;br&gt;Create it anyway?</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Measuring…</translation>
    </message>
    <message>
        <source>Silent</source>
        <translation>Silent</translation>
    </message>
    <message>
        <source>%1 LUFS</source>
        <translation>%1 LUFS</translation>
    </message>
    <message>
        <source>Loudness of the selection as it will be written; true peak %1 dBTP</source>
        <translation>Loudness of the selection as it will be written; true peak %1 dBTP</translation>
    </message>
    <message>
        <source>&amp;Normalize</source>
        <translation>&amp;Normalize</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Off</translation>
    </message>
    <message>
        <source>Standard (−14 LUFS)</source>
        <translation>Standard (−14 LUFS)</translation>
    </message>
    <message>
        <source>Loud (−11 LUFS)</source>
        <translation>Loud (−11 LUFS)</translation>
    </message>
    <message>
        <source>Sets the gain so that the ringtone plays at a chosen loudness, without clipping</source>
        <translation>Sets the gain so that the ringtone plays at a chosen loudness, without clipping</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>Suggest the best part</source>
        <translation>Suggest the best part</translation>
    </message>
    <message>
        <source>Suggest the &amp;Best Part</source>
        <translation>Suggest the &amp;Best Part</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>Volume: %1%</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Redo</translation>
    </message>
    <message>
        <source>Set Start at the Play Position</source>
        <translation>Set Start at the Play Position</translation>
    </message>
    <message>
        <source>Set End at the Play Position</source>
        <translation>Set End at the Play Position</translation>
    </message>
    <message>
        <source>Move the Start Earlier</source>
        <translation>Move the Start Earlier</translation>
    </message>
    <message>
        <source>Move the Start Later</source>
        <translation>Move the Start Later</translation>
    </message>
    <message>
        <source>Move the End Earlier</source>
        <translation>Move the End Earlier</translation>
    </message>
    <message>
        <source>Move the End Later</source>
        <translation>Move the End Later</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Play</translation>
    </message>
    <message>
        <source>Play or Pause</source>
        <translation>Play or Pause</translation>
    </message>
    <message>
        <source>Preview the Selection</source>
        <translation>Preview the Selection</translation>
    </message>
    <message>
        <source>Loop the Preview</source>
        <translation>Loop the Preview</translation>
    </message>
    <message>
        <source>Back One Second</source>
        <translation>Back One Second</translation>
    </message>
    <message>
        <source>Forward One Second</source>
        <translation>Forward One Second</translation>
    </message>
    <message>
        <source>Go to the Start of the Selection</source>
        <translation>Go to the Start of the Selection</translation>
    </message>
    <message>
        <source>Go to the End of the Selection</source>
        <translation>Go to the End of the Selection</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Zoom In</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom Out</translation>
    </message>
    <message>
        <source>Search the library</source>
        <translation>Search the library</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Library</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>Songs</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Forward</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>Volume Down</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>Volume Up</translation>
    </message>
    <message>
        <source>Fade-in length in seconds</source>
        <translation>Fade-in length in seconds</translation>
    </message>
    <message>
        <source>Fade-out length in seconds</source>
        <translation>Fade-out length in seconds</translation>
    </message>
    <message>
        <source>Kind of ringtone</source>
        <translation>Kind of ringtone</translation>
    </message>
    <message>
        <source>Scroll the waveform</source>
        <translation>Scroll the waveform</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message>
        <source>Play or Pause the Preview</source>
        <translation>Play or Pause the Preview</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>Fade in</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>End Time</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>Normalize</translation>
    </message>
    <message>
        <source>Changes the volume of the ringtone; Normalize replaces it</source>
        <translation>Changes the volume of the ringtone; Normalize replaces it</translation>
    </message>
    <message>
        <source>Writes the selection as a ringtone</source>
        <translation>Writes the selection as a ringtone</translation>
    </message>
    <message>
        <source>A ringtone is being written. Close Tonewright when it is done?</source>
        <translation>A ringtone is being written. Close Tonewright when it is done?</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Windows</source>
        <translation>&amp;Windows</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Language</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>E&amp;xtras</source>
        <translation>E&amp;xtras</translation>
    </message>
</context>
<context>
    <name>CNameDlgClass</name>
    <message>
        <source>Save as</source>
        <translation>Save as</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>CNewestDlgClass</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>COptionDlgClass</name>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Proxy</source>
        <translation>Proxy</translation>
    </message>
</context>
<context>
    <name>CPopDlg</name>
    <message>
        <source> </source>
        <translation> </translation>
    </message>
</context>
<context>
    <name>CProxyOptionWidget</name>
    <message>
        <source>Http</source>
        <translation>Http</translation>
    </message>
    <message>
        <source>Socks5</source>
        <translation>Socks5</translation>
    </message>
    <message>
        <source>HttpCaching</source>
        <translation>HttpCaching</translation>
    </message>
    <message>
        <source>FtpCaching</source>
        <translation>FtpCaching</translation>
    </message>
</context>
<context>
    <name>CProxyWidgetClass</name>
    <message>
        <source>use proxy</source>
        <translation>use proxy</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>Host:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>Proxy Type</source>
        <translation>Proxy Type</translation>
    </message>
    <message>
        <source>UserName</source>
        <translation>UserName</translation>
    </message>
    <message>
        <source>PassWord</source>
        <translation>PassWord</translation>
    </message>
</context>
<context>
    <name>CRingtoneExport</name>
    <message>
        <source>iPhone ringtone</source>
        <translation>iPhone ringtone</translation>
    </message>
    <message>
        <source>iPhone alert tone</source>
        <translation>iPhone alert tone</translation>
    </message>
    <message>
        <source>Android (Ogg)</source>
        <translation>Android (Ogg)</translation>
    </message>
    <message>
        <source>Android (MP3)</source>
        <translation>Android (MP3)</translation>
    </message>
    <message>
        <source>AAC audio (.m4a)</source>
        <translation>AAC audio (.m4a)</translation>
    </message>
</context>
<context>
    <name>CRingtoneNotice</name>
    <message>
        <source>%1 added to Ringtones</source>
        <translation>%1 added to Ringtones</translation>
    </message>
    <message>
        <source>%1 was made, but the library did not take it</source>
        <translation>%1 was made, but the library did not take it</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Show in folder</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Play</translation>
    </message>
</context>
<context>
    <name>CTryAgainDlg</name>
    <message>
        <source>Try again</source>
        <translation>Try again</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Sorry, the file &amp;quot;%1&amp;quot; could not be read.</source>
        <translation>Sorry, the file &amp;quot;%1&amp;quot; could not be read.</translation>
    </message>
    <message>
        <source>Check that it is still there, then try again.</source>
        <translation>Check that it is still there, then try again.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a media file.</source>
        <translation>&amp;quot;%1&amp;quot; is not a media file.</translation>
    </message>
    <message>
        <source>Choose a song or a video.</source>
        <translation>Choose a song or a video.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; has no sound in it.</source>
        <translation>&amp;quot;%1&amp;quot; has no sound in it.</translation>
    </message>
    <message>
        <source>Choose a song or a video with sound.</source>
        <translation>Choose a song or a video with sound.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too short.</source>
        <translation>&amp;quot;%1&amp;quot; is too short.</translation>
    </message>
    <message>
        <source>The shortest ringtone is %1 seconds.</source>
        <translation>The shortest ringtone is %1 seconds.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too long.</source>
        <translation>&amp;quot;%1&amp;quot; is too long.</translation>
    </message>
    <message>
        <source>The editor opens up to %1 hours %2 minutes of sound.</source>
        <translation>The editor opens up to %1 hours %2 minutes of sound.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a file.</source>
        <translation>&amp;quot;%1&amp;quot; is not a file.</translation>
    </message>
    <message>
        <source>Pipes and devices cannot be opened. Choose a song or a video.</source>
        <translation>Pipes and devices cannot be opened. Choose a song or a video.</translation>
    </message>
</context>
<context>
    <name>CUpdateOptionWidgetClass</name>
    <message>
        <source>Enable automatic update check</source>
        <translation>Enable automatic update check</translation>
    </message>
    <message>
        <source>Number of days between update checks</source>
        <translation>Number of days between update checks</translation>
    </message>
    <message>
        <source>Update every day</source>
        <translation>Update every day</translation>
    </message>
    <message>
        <source>Update every week</source>
        <translation>Update every week</translation>
    </message>
    <message>
        <source>Update every month</source>
        <translation>Update every month</translation>
    </message>
</context>
<context>
    <name>CUpgradeClass</name>
    <message>
        <source>Download Now</source>
        <translation>Download Now</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>CUpgradeDlg</name>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;A new version is avaliable now! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;A new version is avaliable now! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>What&apos;s new for this version:</source>
        <translation>What&apos;s new for this version:</translation>
    </message>
</context>
<context>
    <name>CWaveWnd</name>
    <message>
        <source>Space plays, Shift+Space previews the selection, I and O set its start and end, Alt and Ctrl with the arrow keys move its edges</source>
        <translation>Space plays, Shift+Space previews the selection, I and O set its start and end, Alt and Ctrl with the arrow keys move its edges</translation>
    </message>
    <message>
        <source>Waveform, no song open</source>
        <translation>Waveform, no song open</translation>
    </message>
    <message>
        <source>Selection %1 to %2 of %3</source>
        <translation>Selection %1 to %2 of %3</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Tonewright</source>
        <translation>Tonewright</translation>
    </message>
    <message>
        <source>Copyright © 2010-2026 Vandrel Software. All rights reserved.</source>
        <translation>Copyright © 2010-2026 Vandrel Software. All rights reserved.</translation>
    </message>
    <message>
        <source>&lt;p&gt;Support: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Support: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Home Page: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Home Page: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Please select file in the left list,&lt;br /&gt;Or drag a song or movie file into the window.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Please select file in the left list,&lt;br /&gt;Or drag a song or movie file into the window.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Sorry, the file &amp;quot;%1&amp;quot; is not converted correctly.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Something wrong happened.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Please try again or import another file.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Sorry, the file &amp;quot;%1&amp;quot; is not converted correctly.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Something wrong happened.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Please try again or import another file.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;You are using the newest version now!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;You are using the newest version now!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
</TS>
