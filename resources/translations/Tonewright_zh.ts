<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version: </source>
        <translation>版本：</translation>
    </message>
</context>
<context>
    <name>CCrashReportDlg</name>
    <message>
        <source>Problem Report for Tonewright</source>
        <translation>Tonewright 问题报告</translation>
    </message>
    <message>
        <source>If you found any problem with Tonewright.</source>
        <translation>在使用 Tonewright 时遇到问题了吗？</translation>
    </message>
    <message>
        <source>Tonewright quitted unexpectedly last time.</source>
        <translation>Tonewright 上次意外退出。</translation>
    </message>
    <message>
        <source>Please click &amp;quot;Send report&amp;quot; to Email the report to us. </source>
        <translation>请点击&amp;quot;发送报告&amp;quot;，通过电子邮件将报告发送给我们。</translation>
    </message>
    <message>
        <source>Your report will help Vandrel improve this software. Your personal information will not be included in this report.</source>
        <translation>您的报告将帮助 Vandrel 改进本软件。报告中不会包含您的个人信息。</translation>
    </message>
    <message>
        <source>For more product support, visit </source>
        <translation>如需更多产品支持，请访问 </translation>
    </message>
    <message>
        <source>Send Report</source>
        <translation>发送报告</translation>
    </message>
    <message>
        <source>[Please describe your problem here.]</source>
        <translation>[请在此描述您遇到的问题。]</translation>
    </message>
</context>
<context>
    <name>CFilterEdit</name>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>标题</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>艺人</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>专辑</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Search in</source>
        <translation>搜索范围</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
</context>
<context>
    <name>CHelloWnd</name>
    <message>
        <source>Learn More</source>
        <translation>了解更多</translation>
    </message>
</context>
<context>
    <name>CLibraryModel</name>
    <message>
        <source>ITunes</source>
        <translation>iTunes</translation>
    </message>
    <message>
        <source>Loading library…</source>
        <translation>正在载入资料库…</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>资料库</translation>
    </message>
    <message>
        <source>PlayList</source>
        <translation>播放列表</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>音乐</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>影片</translation>
    </message>
    <message>
        <source>Ringtones</source>
        <translation>铃声</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>电视节目</translation>
    </message>
    <message>
        <source>Podcasts</source>
        <translation>播客</translation>
    </message>
    <message>
        <source>Purchased</source>
        <translation>已购项目</translation>
    </message>
</context>
<context>
    <name>CMainWnd</name>
    <message>
        <source>Open File</source>
        <translation>打开文件</translation>
    </message>
    <message>
        <source>Media Files (*.*)</source>
        <translation>媒体文件 (*.*)</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>Preview Selected</source>
        <translation>试听所选部分</translation>
    </message>
    <message>
        <source>A ringtone named &quot;%1&quot; is already in your library.&lt;br&gt;Replace it?</source>
        <translation>资料库中已有名为“%1”的铃声。&lt;br&gt;要替换吗？</translation>
    </message>
    <message>
        <source>I am creating a ringtone %1 with Tonewright. </source>
        <translation>我正在用 Tonewright 制作铃声“%1”。 </translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>窗口</translation>
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
        <translation>语言</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>Ctrl+A</source>
        <translation>Ctrl+A</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>更多</translation>
    </message>
    <message>
        <source>Frontward</source>
        <translation>前进</translation>
    </message>
    <message>
        <source>Backward  </source>
        <translation>后退</translation>
    </message>
    <message>
        <source>Show or Hide Music Cover, Video Preview Box</source>
        <translation>显示或隐藏音乐封面和视频预览框</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>打开文件</translation>
    </message>
    <message>
        <source>Timeline Zoom Out</source>
        <translation>缩小时间轴</translation>
    </message>
    <message>
        <source>Timeline Zoom In</source>
        <translation>放大时间轴</translation>
    </message>
    <message>
        <source>Set as Start Time</source>
        <translation>设为开始时间</translation>
    </message>
    <message>
        <source>Set as End Time</source>
        <translation>设为结束时间</translation>
    </message>
    <message>
        <source>Voice Zoom Out</source>
        <translation>降低音量</translation>
    </message>
    <message>
        <source>Voice Zoom In</source>
        <translation>提高音量</translation>
    </message>
    <message>
        <source>Quit Editing</source>
        <translation>退出编辑</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>淡出</translation>
    </message>
    <message>
        <source>Fade  in</source>
        <translation>淡入</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>开始时间</translation>
    </message>
    <message>
        <source>End  Time</source>
        <translation>结束时间</translation>
    </message>
    <message>
        <source>Start to Create</source>
        <translation>开始制作</translation>
    </message>
    <message>
        <source>Tweet Your Ringtone</source>
        <translation>发推分享您的铃声</translation>
    </message>
    <message>
        <source>Find us on Facebook</source>
        <translation>在 Facebook 上关注我们</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Bring All to Front</source>
        <translation>前置全部窗口</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于 Tonewright</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>技术支持</translation>
    </message>
    <message>
        <source>Help Topic</source>
        <translation>帮助主题</translation>
    </message>
    <message>
        <source>Crash Report</source>
        <translation>崩溃报告</translation>
    </message>
    <message>
        <source>Find us on &amp;Facebook</source>
        <translation>在 Facebook 上关注我们(&amp;F)</translation>
    </message>
    <message>
        <source>Find us on &amp;Twitter</source>
        <translation>在 Twitter 上关注我们(&amp;T)</translation>
    </message>
    <message>
        <source>Vandrel &amp;Clipwell</source>
        <translation>Vandrel Clipwell(&amp;C)</translation>
    </message>
    <message>
        <source>Vandrel &amp;Discwell</source>
        <translation>Vandrel Discwell(&amp;D)</translation>
    </message>
    <message>
        <source>Check &amp;Upgrade</source>
        <translation>检查更新(&amp;U)</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Tonewright</source>
        <translation>Tonewright</translation>
    </message>
    <message>
        <source>Network connection failure,&lt;br&gt;please check the validity of the proxy.</source>
        <translation>网络连接失败，&lt;br&gt;请检查代理设置是否有效。</translation>
    </message>
    <message>
        <source>The url is invalid</source>
        <translation>URL 无效</translation>
    </message>
    <message>
        <source>Sorry, the product information can&apos;t be found.</source>
        <translation>抱歉，找不到产品信息。</translation>
    </message>
    <message>
        <source>The selection is %1 seconds long. Phones refuse this kind of ringtone when it is longer than %2 seconds.&lt;br&gt;Create it anyway?</source>
        <translation>所选片段长 %1 秒。此类铃声超过 %2 秒时手机会拒绝使用。&lt;br&gt;仍要创建吗？</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>正在测量…</translation>
    </message>
    <message>
        <source>Silent</source>
        <translation>静音</translation>
    </message>
    <message>
        <source>%1 LUFS</source>
        <translation>%1 LUFS</translation>
    </message>
    <message>
        <source>Loudness of the selection as it will be written; true peak %1 dBTP</source>
        <translation>选区写出后的响度；真峰值 %1 dBTP</translation>
    </message>
    <message>
        <source>&amp;Normalize</source>
        <translation>标准化(&amp;N)</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Standard (−14 LUFS)</source>
        <translation>标准 (−14 LUFS)</translation>
    </message>
    <message>
        <source>Loud (−11 LUFS)</source>
        <translation>响亮 (−11 LUFS)</translation>
    </message>
    <message>
        <source>Sets the gain so that the ringtone plays at a chosen loudness, without clipping</source>
        <translation>调整增益，使铃声达到所选响度且不削波</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>Suggest the best part</source>
        <translation>推荐最佳片段</translation>
    </message>
    <message>
        <source>Suggest the &amp;Best Part</source>
        <translation>推荐最佳片段(&amp;B)</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>音量：%1%</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Set Start at the Play Position</source>
        <translation>将播放位置设为开始</translation>
    </message>
    <message>
        <source>Set End at the Play Position</source>
        <translation>将播放位置设为结束</translation>
    </message>
    <message>
        <source>Move the Start Earlier</source>
        <translation>开始提前</translation>
    </message>
    <message>
        <source>Move the Start Later</source>
        <translation>开始推后</translation>
    </message>
    <message>
        <source>Move the End Earlier</source>
        <translation>结束提前</translation>
    </message>
    <message>
        <source>Move the End Later</source>
        <translation>结束推后</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>播放(&amp;P)</translation>
    </message>
    <message>
        <source>Play or Pause</source>
        <translation>播放或暂停</translation>
    </message>
    <message>
        <source>Preview the Selection</source>
        <translation>试听选区</translation>
    </message>
    <message>
        <source>Loop the Preview</source>
        <translation>循环试听</translation>
    </message>
    <message>
        <source>Back One Second</source>
        <translation>后退一秒</translation>
    </message>
    <message>
        <source>Forward One Second</source>
        <translation>前进一秒</translation>
    </message>
    <message>
        <source>Go to the Start of the Selection</source>
        <translation>转到选区开头</translation>
    </message>
    <message>
        <source>Go to the End of the Selection</source>
        <translation>转到选区结尾</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Search the library</source>
        <translation>搜索资料库</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>资料库</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>歌曲</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>后退</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>前进</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>缩放</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>减小音量</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>增大音量</translation>
    </message>
    <message>
        <source>Fade-in length in seconds</source>
        <translation>淡入时长（秒）</translation>
    </message>
    <message>
        <source>Fade-out length in seconds</source>
        <translation>淡出时长（秒）</translation>
    </message>
    <message>
        <source>Kind of ringtone</source>
        <translation>铃声类型</translation>
    </message>
    <message>
        <source>Scroll the waveform</source>
        <translation>滚动波形</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>歌曲</translation>
    </message>
    <message>
        <source>Play or Pause the Preview</source>
        <translation>播放或暂停预览</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>淡入</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>结束时间</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>标准化</translation>
    </message>
    <message>
        <source>Changes the volume of the ringtone; Normalize replaces it</source>
        <translation>更改铃声的音量；标准化会取代它</translation>
    </message>
    <message>
        <source>Writes the selection as a ringtone</source>
        <translation>将选区写成铃声</translation>
    </message>
    <message>
        <source>A ringtone is being written. Close Tonewright when it is done?</source>
        <translation>正在写入铃声。完成后关闭 Tonewright？</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Windows</source>
        <translation>窗口(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>E&amp;xtras</source>
        <translation>其他(&amp;X)</translation>
    </message>
</context>
<context>
    <name>CNameDlgClass</name>
    <message>
        <source>Save as</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>CNewestDlgClass</name>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>COptionDlgClass</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Proxy</source>
        <translation>代理</translation>
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
        <translation>HTTP</translation>
    </message>
    <message>
        <source>Socks5</source>
        <translation>SOCKS5</translation>
    </message>
    <message>
        <source>HttpCaching</source>
        <translation>HTTP 缓存</translation>
    </message>
    <message>
        <source>FtpCaching</source>
        <translation>FTP 缓存</translation>
    </message>
</context>
<context>
    <name>CProxyWidgetClass</name>
    <message>
        <source>use proxy</source>
        <translation>使用代理</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>主机：</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>端口：</translation>
    </message>
    <message>
        <source>Proxy Type</source>
        <translation>代理类型</translation>
    </message>
    <message>
        <source>UserName</source>
        <translation>用户名</translation>
    </message>
    <message>
        <source>PassWord</source>
        <translation>密码</translation>
    </message>
</context>
<context>
    <name>CRingtoneExport</name>
    <message>
        <source>iPhone ringtone</source>
        <translation>iPhone 铃声</translation>
    </message>
    <message>
        <source>iPhone alert tone</source>
        <translation>iPhone 提醒音</translation>
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
        <translation>AAC 音频 (.m4a)</translation>
    </message>
</context>
<context>
    <name>CRingtoneNotice</name>
    <message>
        <source>%1 added to Ringtones</source>
        <translation>已将 %1 添加到铃声</translation>
    </message>
    <message>
        <source>%1 was made, but the library did not take it</source>
        <translation>已创建 %1，但资料库未能收录</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
</context>
<context>
    <name>CTryAgainDlg</name>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Sorry, the file &amp;quot;%1&amp;quot; could not be read.</source>
        <translation>抱歉，无法读取文件&amp;quot;%1&amp;quot;。</translation>
    </message>
    <message>
        <source>Check that it is still there, then try again.</source>
        <translation>请确认文件仍在原处，然后重试。</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a media file.</source>
        <translation>&amp;quot;%1&amp;quot;不是媒体文件。</translation>
    </message>
    <message>
        <source>Choose a song or a video.</source>
        <translation>请选择一首歌曲或一段视频。</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; has no sound in it.</source>
        <translation>&amp;quot;%1&amp;quot;中没有声音。</translation>
    </message>
    <message>
        <source>Choose a song or a video with sound.</source>
        <translation>请选择有声音的歌曲或视频。</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too short.</source>
        <translation>&amp;quot;%1&amp;quot;太短。</translation>
    </message>
    <message>
        <source>The shortest ringtone is %1 seconds.</source>
        <translation>铃声最短为 %1 秒。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too long.</source>
        <translation>&amp;quot;%1&amp;quot; 太长。</translation>
    </message>
    <message>
        <source>The editor opens up to %1 hours %2 minutes of sound.</source>
        <translation>编辑器最多可打开 %1 小时 %2 分钟的声音。</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a file.</source>
        <translation>&amp;quot;%1&amp;quot; 不是文件。</translation>
    </message>
    <message>
        <source>Pipes and devices cannot be opened. Choose a song or a video.</source>
        <translation>无法打开管道和设备。请选择一首歌曲或一段视频。</translation>
    </message>
</context>
<context>
    <name>CUpdateOptionWidgetClass</name>
    <message>
        <source>Enable automatic update check</source>
        <translation>启用自动检查更新</translation>
    </message>
    <message>
        <source>Number of days between update checks</source>
        <translation>检查更新的间隔天数</translation>
    </message>
    <message>
        <source>Update every day</source>
        <translation>每天</translation>
    </message>
    <message>
        <source>Update every week</source>
        <translation>每周</translation>
    </message>
    <message>
        <source>Update every month</source>
        <translation>每月</translation>
    </message>
</context>
<context>
    <name>CUpgradeClass</name>
    <message>
        <source>Download Now</source>
        <translation>立即下载</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>CUpgradeDlg</name>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;A new version is avaliable now! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;有新版本可用！&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>What&apos;s new for this version:</source>
        <translation>此版本的新功能：</translation>
    </message>
</context>
<context>
    <name>CWaveWnd</name>
    <message>
        <source>Space plays, Shift+Space previews the selection, I and O set its start and end, Alt and Ctrl with the arrow keys move its edges</source>
        <translation>空格键播放，Shift+空格键试听选区，I 和 O 设置开始和结束，Alt 和 Ctrl 加方向键移动边缘</translation>
    </message>
    <message>
        <source>Waveform, no song open</source>
        <translation>波形，未打开歌曲</translation>
    </message>
    <message>
        <source>Selection %1 to %2 of %3</source>
        <translation>选区 %1 至 %2，共 %3</translation>
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
        <translation>版权所有 © 2010-2026 Vandrel Software。保留所有权利。</translation>
    </message>
    <message>
        <source>&lt;p&gt;Support: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;技术支持：%1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Home Page: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;主页：%1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Please select file in the left list,&lt;br /&gt;Or drag a song or movie file into the window.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;请在左侧列表中选择文件，&lt;br /&gt;或将歌曲或影片文件拖入窗口。&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Sorry, the file &amp;quot;%1&amp;quot; is not converted correctly.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Something wrong happened.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Please try again or import another file.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;抱歉，文件&amp;quot;%1&amp;quot;未能正确转换。&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;出现了问题。&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;请重试或导入其他文件。&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;You are using the newest version now!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;您使用的已是最新版本！&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
</TS>
