<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version: </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CFilterEdit</name>
    <message>
        <source>All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Artist</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Album</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CHelloWnd</name>
    <message>
        <source>Learn More</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLibraryModel</name>
    <message>
        <source>ITunes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading library…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Library</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PlayList</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CNameDlgClass</name>
    <message>
        <source>Save as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ok</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CPopDlg</name>
    <message>
        <source> </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CTryAgainDlg</name>
    <message>
        <source>Try again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Tonewright</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copyright © 2010-2026 Vandrel Software. All rights reserved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p&gt;Support: %1&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p&gt;Home Page: %1&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Please select file in the left list,&lt;br /&gt;Or drag a song or movie file into the window.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Sorry, the file &amp;quot;%1&amp;quot; is not converted correctly.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Something wrong happened.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Please try again or import another file.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
