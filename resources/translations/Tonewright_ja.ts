<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version: </source>
        <translation>バージョン: </translation>
    </message>
</context>
<context>
    <name>CCrashReportDlg</name>
    <message>
        <source>Problem Report for Tonewright</source>
        <translation>Tonewright 問題レポート</translation>
    </message>
    <message>
        <source>If you found any problem with Tonewright.</source>
        <translation>Tonewright で何か問題が見つかりましたか？</translation>
    </message>
    <message>
        <source>Tonewright quitted unexpectedly last time.</source>
        <translation>前回、Tonewright は予期せず終了しました。</translation>
    </message>
    <message>
        <source>Please click &amp;quot;Send report&amp;quot; to Email the report to us. </source>
        <translation>&amp;quot;レポートを送信&amp;quot; をクリックすると、レポートがメールで送信されます。</translation>
    </message>
    <message>
        <source>Your report will help Vandrel improve this software. Your personal information will not be included in this report.</source>
        <translation>レポートは Vandrel がこのソフトウェアを改善するために役立てられます。レポートに個人情報が含まれることはありません。</translation>
    </message>
    <message>
        <source>For more product support, visit </source>
        <translation>製品サポートの詳細については、次のサイトをご覧ください: </translation>
    </message>
    <message>
        <source>Send Report</source>
        <translation>レポートを送信</translation>
    </message>
    <message>
        <source>[Please describe your problem here.]</source>
        <translation>[ここに問題の内容を記入してください。]</translation>
    </message>
</context>
<context>
    <name>CFilterEdit</name>
    <message>
        <source>All</source>
        <translation>すべて</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>タイトル</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>アーティスト</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>アルバム</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>クリア</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>フィルター</translation>
    </message>
    <message>
        <source>Search in</source>
        <translation>検索対象</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
</context>
<context>
    <name>CHelloWnd</name>
    <message>
        <source>Learn More</source>
        <translation>詳しく見る</translation>
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
        <translation>ライブラリを読み込んでいます…</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>ライブラリ</translation>
    </message>
    <message>
        <source>PlayList</source>
        <translation>プレイリスト</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>ミュージック</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>ムービー</translation>
    </message>
    <message>
        <source>Ringtones</source>
        <translation>着信音</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>テレビ番組</translation>
    </message>
    <message>
        <source>Podcasts</source>
        <translation>Podcast</translation>
    </message>
    <message>
        <source>Purchased</source>
        <translation>購入したもの</translation>
    </message>
</context>
<context>
    <name>CMainWnd</name>
    <message>
        <source>Open File</source>
        <translation>ファイルを開く</translation>
    </message>
    <message>
        <source>Media Files (*.*)</source>
        <translation>メディアファイル (*.*)</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Preview Selected</source>
        <translation>選択範囲を試聴</translation>
    </message>
    <message>
        <source>A ringtone named &quot;%1&quot; is already in your library.&lt;br&gt;Replace it?</source>
        <translation>「%1」という名前の着信音はすでにライブラリにあります。&lt;br&gt;置き換えますか？</translation>
    </message>
    <message>
        <source>I am creating a ringtone %1 with Tonewright. </source>
        <translation>Tonewright で着信音「%1」を作成しています。 </translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>ウィンドウ</translation>
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
        <translation>言語</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>Ctrl+A</source>
        <translation>Ctrl+A</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>Frontward</source>
        <translation>進む</translation>
    </message>
    <message>
        <source>Backward  </source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Show or Hide Music Cover, Video Preview Box</source>
        <translation>ジャケット写真とビデオプレビューの表示/非表示</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>ファイルを開く</translation>
    </message>
    <message>
        <source>Timeline Zoom Out</source>
        <translation>タイムラインを縮小</translation>
    </message>
    <message>
        <source>Timeline Zoom In</source>
        <translation>タイムラインを拡大</translation>
    </message>
    <message>
        <source>Set as Start Time</source>
        <translation>開始位置に設定</translation>
    </message>
    <message>
        <source>Set as End Time</source>
        <translation>終了位置に設定</translation>
    </message>
    <message>
        <source>Voice Zoom Out</source>
        <translation>音量を下げる</translation>
    </message>
    <message>
        <source>Voice Zoom In</source>
        <translation>音量を上げる</translation>
    </message>
    <message>
        <source>Quit Editing</source>
        <translation>編集を終了</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>フェードアウト</translation>
    </message>
    <message>
        <source>Fade  in</source>
        <translation>フェードイン</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>開始位置</translation>
    </message>
    <message>
        <source>End  Time</source>
        <translation>終了位置</translation>
    </message>
    <message>
        <source>Start to Create</source>
        <translation>着信音を作成</translation>
    </message>
    <message>
        <source>Tweet Your Ringtone</source>
        <translation>着信音をツイート</translation>
    </message>
    <message>
        <source>Find us on Facebook</source>
        <translation>Facebook でフォロー</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>名前を付けて保存</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Bring All to Front</source>
        <translation>すべてを手前に移動</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Tonewright について</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>サポート</translation>
    </message>
    <message>
        <source>Help Topic</source>
        <translation>ヘルプトピック</translation>
    </message>
    <message>
        <source>Crash Report</source>
        <translation>クラッシュレポート</translation>
    </message>
    <message>
        <source>Find us on &amp;Facebook</source>
        <translation>Facebook でフォロー(&amp;F)</translation>
    </message>
    <message>
        <source>Find us on &amp;Twitter</source>
        <translation>Twitter でフォロー(&amp;T)</translation>
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
        <translation>アップデートを確認(&amp;U)</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>Tonewright</source>
        <translation>Tonewright</translation>
    </message>
    <message>
        <source>Network connection failure,&lt;br&gt;please check the validity of the proxy.</source>
        <translation>ネットワークに接続できませんでした。&lt;br&gt;プロキシの設定が正しいか確認してください。</translation>
    </message>
    <message>
        <source>The url is invalid</source>
        <translation>URL が無効です</translation>
    </message>
    <message>
        <source>Sorry, the product information can&apos;t be found.</source>
        <translation>申し訳ありません。製品情報が見つかりませんでした。</translation>
    </message>
    <message>
        <source>The selection is %1 seconds long. Phones refuse this kind of ringtone when it is longer than %2 seconds.&lt;br&gt;Create it anyway?</source>
        <translation>選択範囲は %1 秒です。この種類の着信音は %2 秒を超えると電話機で使えません。&lt;br&gt;それでも作成しますか？</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>測定中…</translation>
    </message>
    <message>
        <source>Silent</source>
        <translation>無音</translation>
    </message>
    <message>
        <source>%1 LUFS</source>
        <translation>%1 LUFS</translation>
    </message>
    <message>
        <source>Loudness of the selection as it will be written; true peak %1 dBTP</source>
        <translation>書き出される選択範囲のラウドネス。トゥルーピーク %1 dBTP</translation>
    </message>
    <message>
        <source>&amp;Normalize</source>
        <translation>ノーマライズ(&amp;N)</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>オフ</translation>
    </message>
    <message>
        <source>Standard (−14 LUFS)</source>
        <translation>標準 (−14 LUFS)</translation>
    </message>
    <message>
        <source>Loud (−11 LUFS)</source>
        <translation>大きめ (−11 LUFS)</translation>
    </message>
    <message>
        <source>Sets the gain so that the ringtone plays at a chosen loudness, without clipping</source>
        <translation>着信音が選んだラウドネスになるようにゲインを設定します（クリップなし）</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>Suggest the best part</source>
        <translation>いちばん良い部分を提案</translation>
    </message>
    <message>
        <source>Suggest the &amp;Best Part</source>
        <translation>いちばん良い部分を提案(&amp;B)</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>音量: %1%</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>やり直す</translation>
    </message>
    <message>
        <source>Set Start at the Play Position</source>
        <translation>再生位置を開始点にする</translation>
    </message>
    <message>
        <source>Set End at the Play Position</source>
        <translation>再生位置を終了点にする</translation>
    </message>
    <message>
        <source>Move the Start Earlier</source>
        <translation>開始点を前へ</translation>
    </message>
    <message>
        <source>Move the Start Later</source>
        <translation>開始点を後ろへ</translation>
    </message>
    <message>
        <source>Move the End Earlier</source>
        <translation>終了点を前へ</translation>
    </message>
    <message>
        <source>Move the End Later</source>
        <translation>終了点を後ろへ</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>再生(&amp;P)</translation>
    </message>
    <message>
        <source>Play or Pause</source>
        <translation>再生/一時停止</translation>
    </message>
    <message>
        <source>Preview the Selection</source>
        <translation>選択範囲を試聴</translation>
    </message>
    <message>
        <source>Loop the Preview</source>
        <translation>試聴をくり返す</translation>
    </message>
    <message>
        <source>Back One Second</source>
        <translation>1秒戻る</translation>
    </message>
    <message>
        <source>Forward One Second</source>
        <translation>1秒進む</translation>
    </message>
    <message>
        <source>Go to the Start of the Selection</source>
        <translation>選択範囲の先頭へ</translation>
    </message>
    <message>
        <source>Go to the End of the Selection</source>
        <translation>選択範囲の末尾へ</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>拡大</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>縮小</translation>
    </message>
    <message>
        <source>Search the library</source>
        <translation>ライブラリを検索</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>ライブラリ</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>曲</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>進む</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>ズーム</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>音量を下げる</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>音量を上げる</translation>
    </message>
    <message>
        <source>Fade-in length in seconds</source>
        <translation>フェードインの長さ（秒）</translation>
    </message>
    <message>
        <source>Fade-out length in seconds</source>
        <translation>フェードアウトの長さ（秒）</translation>
    </message>
    <message>
        <source>Kind of ringtone</source>
        <translation>着信音の種類</translation>
    </message>
    <message>
        <source>Scroll the waveform</source>
        <translation>波形をスクロール</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>曲</translation>
    </message>
    <message>
        <source>Play or Pause the Preview</source>
        <translation>プレビューの再生/一時停止</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>フェードイン</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>終了時間</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>ノーマライズ</translation>
    </message>
    <message>
        <source>Changes the volume of the ringtone; Normalize replaces it</source>
        <translation>着信音の音量を変えます。ノーマライズを使うとこちらは使われません</translation>
    </message>
    <message>
        <source>Writes the selection as a ringtone</source>
        <translation>選択範囲を着信音として書き出します</translation>
    </message>
    <message>
        <source>A ringtone is being written. Close Tonewright when it is done?</source>
        <translation>着信音を書き出しています。終わったら Tonewright を閉じますか?</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Windows</source>
        <translation>ウィンドウ(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>言語(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>E&amp;xtras</source>
        <translation>その他(&amp;X)</translation>
    </message>
</context>
<context>
    <name>CNameDlgClass</name>
    <message>
        <source>Save as</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
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
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>Proxy</source>
        <translation>プロキシ</translation>
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
        <translation>HTTP キャッシュ</translation>
    </message>
    <message>
        <source>FtpCaching</source>
        <translation>FTP キャッシュ</translation>
    </message>
</context>
<context>
    <name>CProxyWidgetClass</name>
    <message>
        <source>use proxy</source>
        <translation>プロキシを使用する</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>ホスト:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>ポート:</translation>
    </message>
    <message>
        <source>Proxy Type</source>
        <translation>プロキシの種類</translation>
    </message>
    <message>
        <source>UserName</source>
        <translation>ユーザー名</translation>
    </message>
    <message>
        <source>PassWord</source>
        <translation>パスワード</translation>
    </message>
</context>
<context>
    <name>CRingtoneExport</name>
    <message>
        <source>iPhone ringtone</source>
        <translation>iPhone 着信音</translation>
    </message>
    <message>
        <source>iPhone alert tone</source>
        <translation>iPhone 通知音</translation>
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
        <translation>AAC オーディオ (.m4a)</translation>
    </message>
</context>
<context>
    <name>CRingtoneNotice</name>
    <message>
        <source>%1 added to Ringtones</source>
        <translation>%1 を着信音に追加しました</translation>
    </message>
    <message>
        <source>%1 was made, but the library did not take it</source>
        <translation>%1 を作成しましたが、ライブラリに追加できませんでした</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>フォルダに表示</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
</context>
<context>
    <name>CTryAgainDlg</name>
    <message>
        <source>Try again</source>
        <translation>再試行</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Sorry, the file &amp;quot;%1&amp;quot; could not be read.</source>
        <translation>ファイル &amp;quot;%1&amp;quot; を読み込めませんでした。</translation>
    </message>
    <message>
        <source>Check that it is still there, then try again.</source>
        <translation>ファイルがまだあるか確認してから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a media file.</source>
        <translation>&amp;quot;%1&amp;quot; はメディアファイルではありません。</translation>
    </message>
    <message>
        <source>Choose a song or a video.</source>
        <translation>曲またはビデオを選んでください。</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; has no sound in it.</source>
        <translation>&amp;quot;%1&amp;quot; には音声がありません。</translation>
    </message>
    <message>
        <source>Choose a song or a video with sound.</source>
        <translation>音声のある曲またはビデオを選んでください。</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too short.</source>
        <translation>&amp;quot;%1&amp;quot; は短すぎます。</translation>
    </message>
    <message>
        <source>The shortest ringtone is %1 seconds.</source>
        <translation>着信音は最短で %1 秒です。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too long.</source>
        <translation>&amp;quot;%1&amp;quot; は長すぎます。</translation>
    </message>
    <message>
        <source>The editor opens up to %1 hours %2 minutes of sound.</source>
        <translation>エディターで開けるのは %1 時間 %2 分までの音声です。</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a file.</source>
        <translation>&amp;quot;%1&amp;quot; はファイルではありません。</translation>
    </message>
    <message>
        <source>Pipes and devices cannot be opened. Choose a song or a video.</source>
        <translation>パイプやデバイスは開けません。曲かビデオを選んでください。</translation>
    </message>
</context>
<context>
    <name>CUpdateOptionWidgetClass</name>
    <message>
        <source>Enable automatic update check</source>
        <translation>アップデートを自動的に確認する</translation>
    </message>
    <message>
        <source>Number of days between update checks</source>
        <translation>アップデートを確認する間隔 (日数)</translation>
    </message>
    <message>
        <source>Update every day</source>
        <translation>毎日</translation>
    </message>
    <message>
        <source>Update every week</source>
        <translation>毎週</translation>
    </message>
    <message>
        <source>Update every month</source>
        <translation>毎月</translation>
    </message>
</context>
<context>
    <name>CUpgradeClass</name>
    <message>
        <source>Download Now</source>
        <translation>今すぐダウンロード</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>CUpgradeDlg</name>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;A new version is avaliable now! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;新しいバージョンが利用可能です！&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>What&apos;s new for this version:</source>
        <translation>このバージョンの新機能:</translation>
    </message>
</context>
<context>
    <name>CWaveWnd</name>
    <message>
        <source>Space plays, Shift+Space previews the selection, I and O set its start and end, Alt and Ctrl with the arrow keys move its edges</source>
        <translation>Space で再生、Shift+Space で選択範囲を試聴、I と O で開始点と終了点、Alt と Ctrl と矢印キーで端を動かします</translation>
    </message>
    <message>
        <source>Waveform, no song open</source>
        <translation>波形、曲は開かれていません</translation>
    </message>
    <message>
        <source>Selection %1 to %2 of %3</source>
        <translation>選択範囲 %1 から %2（全体 %3）</translation>
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
        <translation>Copyright © 2010-2026 Vandrel Software. 無断転載を禁じます。</translation>
    </message>
    <message>
        <source>&lt;p&gt;Support: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;サポート: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Home Page: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;ホームページ: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Please select file in the left list,&lt;br /&gt;Or drag a song or movie file into the window.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;左のリストからファイルを選択するか、&lt;br /&gt;曲や動画のファイルをウィンドウにドラッグしてください。&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Sorry, the file &amp;quot;%1&amp;quot; is not converted correctly.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Something wrong happened.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Please try again or import another file.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;ファイル &amp;quot;%1&amp;quot; を正しく変換できませんでした。&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;申し訳ありません。問題が発生しました。&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;もう一度試すか、別のファイルを読み込んでください。&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;You are using the newest version now!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;お使いのバージョンは最新です！&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
</TS>
