<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en_US">
<context>
    <name>VantoViewer::ChangeJournal</name>
    <message>
        <location filename="../changejournal.cpp" line="+30"/>
        <location line="+323"/>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <location line="-322"/>
        <location line="+324"/>
        <source>&amp;Redo</source>
        <translation>やり直し(&amp;R)</translation>
    </message>
    <message>
        <location line="-196"/>
        <source>Set %1 to %2</source>
        <translation>%1 を %2 に設定</translation>
    </message>
    <message numerus="yes">
        <location line="+83"/>
        <source>%n feature(s)</source>
        <translation>
            <numerusform>%n 個の機能</numerusform>
        </translation>
    </message>
    <message>
        <location line="+41"/>
        <source>the camera is closed</source>
        <translation>カメラは閉じられています</translation>
    </message>
    <message>
        <location line="+13"/>
        <source>%1: the camera has no such feature</source>
        <translation>%1: カメラにこの機能はありません</translation>
    </message>
    <message>
        <location line="+32"/>
        <source>Undone: %1</source>
        <translation>元に戻しました: %1</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Redone: %1</source>
        <translation>やり直しました: %1</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Cannot undo &quot;%1&quot;: %2</source>
        <translation>「%1」を元に戻せません: %2</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Cannot redo &quot;%1&quot;: %2</source>
        <translation>「%1」をやり直せません: %2</translation>
    </message>
    <message>
        <location line="+16"/>
        <source>&amp;Undo %1</source>
        <translation>%1 を元に戻す(&amp;U)</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>&amp;Redo %1</source>
        <translation>%1 をやり直す(&amp;R)</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ChangesModel</name>
    <message>
        <location filename="../changesmodel.cpp" line="+59"/>
        <source>Execute</source>
        <translation>実行</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>(not read)</source>
        <translation>(未読み取り)</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Applied as one step</source>
        <translation>一つの操作として適用</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Undone</source>
        <translation>元に戻しました</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Undo refused: %1</source>
        <translation>元に戻す操作が拒否されました: %1</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Redone</source>
        <translation>やり直しました</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Redo refused: %1</source>
        <translation>やり直しが拒否されました: %1</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Done (feature set)</source>
        <translation>完了 (機能セット)</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Refused (feature set): %1</source>
        <translation>拒否 (機能セット): %1</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Refused: %1</source>
        <translation>拒否されました: %1</translation>
    </message>
    <message>
        <location line="+55"/>
        <source>Time</source>
        <translation>時刻</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Feature</source>
        <translation>機能</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Old Value</source>
        <translation>変更前の値</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>New Value</source>
        <translation>新しい値</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Result</source>
        <translation>結果</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ConversionEngine</name>
    <message>
        <location filename="../conversionengine.cpp" line="+72"/>
        <source>Pixel format %1 can&apos;t be shown.</source>
        <translation>ピクセルフォーマット %1 は表示できません。</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>The %1 frame holds no image (%2 × %3).</source>
        <translation>%1 のフレームに画像がありません（%2 × %3）。</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>A frame of %1 × %2 is too large to be shown.</source>
        <translation>%1 × %2 のフレームは大きすぎて表示できません。</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>The frame holds %1 bytes; a %2 × %3 %4 image needs %5.</source>
        <translation>フレームは %1 バイトですが、%2 × %3 の %4 画像には %5 バイト必要です。</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>%1 needs an even width and height; the frame is %2 × %3.</source>
        <translation>%1 には偶数の幅と高さが必要です。フレームは %2 × %3 です。</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>%1 needs an even width; the frame is %2 × %3.</source>
        <translation>%1 には偶数の幅が必要です。フレームは %2 × %3 です。</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>There is no memory for an image of %1 × %2.</source>
        <translation>%1 × %2 の画像に必要なメモリがありません。</translation>
    </message>
    <message>
        <location line="+31"/>
        <source>The conversion of %1 failed.</source>
        <translation>%1 の変換に失敗しました。</translation>
    </message>
</context>
<context>
    <name>VantoViewer::DevicesPane</name>
    <message>
        <location filename="../devicespane.cpp" line="+165"/>
        <source>%1 (lost)</source>
        <translation>%1 (切断)</translation>
    </message>
    <message>
        <location line="-137"/>
        <source>Found cameras (double-click to open):</source>
        <translation>見つかったカメラ (ダブルクリックで開く):</translation>
    </message>
    <message>
        <location line="+15"/>
        <source>Camera by IP Address or ID...</source>
        <translation>IP アドレスまたは ID でカメラを指定...</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Built-in Simulated Camera</source>
        <translation>内蔵シミュレーションカメラ</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Simulated Camera from GenICam File...</source>
        <translation>GenICam ファイルからシミュレーションカメラ...</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Open a camera</source>
        <translation>カメラを開きます</translation>
    </message>
    <message>
        <location line="-24"/>
        <location line="+28"/>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Close the selected camera</source>
        <translation>選択したカメラを閉じます</translation>
    </message>
    <message>
        <location line="+22"/>
        <location line="+204"/>
        <source>Scan</source>
        <translation>検索</translation>
    </message>
    <message>
        <location line="-203"/>
        <source>Look for cameras on every network interface and on USB</source>
        <translation>すべてのネットワークインターフェースと USB でカメラを検索します</translation>
    </message>
    <message>
        <location line="+138"/>
        <source>Scanning...</source>
        <translation>検索中...</translation>
    </message>
    <message>
        <location line="+37"/>
        <source>Open Camera</source>
        <translation>カメラを開く</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>IP address or device ID:</source>
        <translation>IP アドレスまたはデバイス ID:</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Simulate a Camera</source>
        <translation>カメラをシミュレート</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>GenICam descriptions (*.xml *.zip)</source>
        <translation>GenICam 記述ファイル (*.xml *.zip)</translation>
    </message>
    <message>
        <location line="+24"/>
        <source>ID: %1
Serial number: %2
Transport: %3</source>
        <translation>ID: %1
シリアル番号: %2
トランスポート: %3</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>No cameras found</source>
        <translation>カメラが見つかりません</translation>
    </message>
    <message>
        <location line="-267"/>
        <source>Reconnect</source>
        <translation>再接続</translation>
    </message>
    <message>
        <location line="+39"/>
        <source>Open the lost camera again, once it is back</source>
        <translation>切断されたカメラが戻ったら、もう一度開きます</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureStatusBar</name>
    <message>
        <location filename="../featurestatusbar.cpp" line="+92"/>
        <source>refused by the camera (access denied)</source>
        <translation>カメラが拒否しました (アクセス拒否)</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>refused by the camera (value out of range)</source>
        <translation>カメラが拒否しました (範囲外の値)</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>refused by the camera (invalid value)</source>
        <translation>カメラが拒否しました (無効な値)</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>not written: the camera did not answer in time</source>
        <translation>書き込まれていません: カメラが時間内に応答しませんでした</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>not written: the camera is lost</source>
        <translation>書き込まれていません: カメラが切断されています</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>not written: the camera does not have it</source>
        <translation>書き込まれていません: カメラにこの機能がありません</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>the write failed</source>
        <translation>書き込みに失敗しました</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ImageWriter</name>
    <message>
        <location filename="../imagewriter.cpp" line="+57"/>
        <source>Unknown image file format %1.</source>
        <translation>不明な画像ファイル形式 %1 です。</translation>
    </message>
    <message>
        <location line="+43"/>
        <location line="+13"/>
        <location line="+17"/>
        <location line="+22"/>
        <location line="+43"/>
        <source>Cannot write %1: %2</source>
        <translation>%1 に書き込めません: %2</translation>
    </message>
    <message>
        <location line="-34"/>
        <source>The frame holds no bytes.</source>
        <translation>フレームにデータがありません。</translation>
    </message>
</context>
<context>
    <name>VantoViewer::MainWindow</name>
    <message>
        <location filename="../mainwindow.cpp" line="+53"/>
        <source>Devices</source>
        <translation>デバイス</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Vanto Viewer</source>
        <translation>Vanto Viewer</translation>
    </message>
    <message numerus="yes">
        <location line="+17"/>
        <source>%n camera(s) found</source>
        <translation>
            <numerusform>%n 台のカメラが見つかりました</numerusform>
        </translation>
    </message>
    <message>
        <location line="+28"/>
        <source>Ready</source>
        <translation>準備完了</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Open Camera by IP Address or ID...</source>
        <translation>IP アドレスまたは ID でカメラを開く...</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>Open Built-in Simulated Camera</source>
        <translation>内蔵シミュレーションカメラを開く</translation>
    </message>
    <message>
        <location line="+17"/>
        <source>Close Camera</source>
        <translation>カメラを閉じる</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Refresh Features</source>
        <translation>機能を更新</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Reads every shown feature from the camera again</source>
        <translation>表示中のすべての機能をカメラから再度読み込みます</translation>
    </message>
    <message>
        <location line="+167"/>
        <source>Cannot open %1: %2</source>
        <translation>%1 を開けません: %2</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>Cannot simulate %1: %2</source>
        <translation>%1 をシミュレートできません: %2</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>the built-in camera</source>
        <translation>内蔵カメラ</translation>
    </message>
    <message>
        <location line="+149"/>
        <source>%1 is lost: %2</source>
        <translation>%1 との接続が切れました: %2</translation>
    </message>
    <message>
        <location line="+18"/>
        <source>Visibility</source>
        <translation>表示レベル</translation>
    </message>
    <message>
        <location line="-115"/>
        <source>Cannot reconnect %1: %2</source>
        <translation>%1 に再接続できません: %2</translation>
    </message>
    <message>
        <location line="+23"/>
        <source>%1 is connected again</source>
        <translation>%1 に再接続しました</translation>
    </message>
    <message>
        <location line="-314"/>
        <source>Settings cannot be saved to %1: %2. Changes to the layout and the visibility level are lost when the viewer closes.</source>
        <translation>設定を %1 に保存できません: %2。レイアウトと表示レベルの変更はビューアーを閉じると失われます。</translation>
    </message>
    <message>
        <location line="+252"/>
        <location line="+35"/>
        <source>Opening %1...</source>
        <translation>%1 を開いています...</translation>
    </message>
    <message>
        <location line="-248"/>
        <source>Open Simulated Camera from GenICam File...</source>
        <translation>GenICam ファイルからシミュレートカメラを開く...</translation>
    </message>
    <message>
        <location line="+37"/>
        <source>Changes</source>
        <translation>変更履歴</translation>
    </message>
</context>
<context>
    <name>VantoViewer::MenuService</name>
    <message>
        <location filename="../menuservice.cpp" line="+17"/>
        <source>&amp;Camera</source>
        <translation>カメラ(&amp;C)</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>&amp;Window</source>
        <translation>ウィンドウ(&amp;W)</translation>
    </message>
    <message>
        <location line="-1"/>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
</context>
<context>
    <name>VantoViewer::OpeningProgress</name>
    <message>
        <location filename="../openingprogress.cpp" line="+9"/>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Opening Camera</source>
        <translation>カメラを開いています</translation>
    </message>
</context>
<context>
    <name>VantoViewer::PixelReader</name>
    <message>
        <location filename="../pixelreader.cpp" line="+37"/>
        <source>%1 (%2-bit)</source>
        <translation>%1（%2 ビット）</translation>
    </message>
</context>
<context>
    <name>VantoViewer::PluginManager</name>
    <message>
        <location filename="../pluginmanager.cpp" line="+100"/>
        <source>%1 is no Vanto Viewer plug-in: %2</source>
        <translation>%1 は Vanto Viewer のプラグインではありません: %2</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Cannot load %1: %2</source>
        <translation>%1 を読み込めません: %2</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>The plug-in %1 did not start.</source>
        <translation>プラグイン %1 を開始できませんでした。</translation>
    </message>
</context>
<context>
    <name>VantoViewer::VisibilityToolBar</name>
    <message>
        <location filename="../visibilitytoolbar.cpp" line="+10"/>
        <source>Visibility</source>
        <translation>表示レベル</translation>
    </message>
    <message>
        <location line="+13"/>
        <source>Beginner</source>
        <translation>初級</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Show the features needed for basic camera set-up</source>
        <translation>基本的なカメラ設定に必要な機能を表示します</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Expert</source>
        <translation>上級</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Also show the features for advanced set-up</source>
        <translation>高度な設定用の機能も表示します</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Guru</source>
        <translation>エキスパート</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Show every feature, including those that need care</source>
        <translation>注意が必要な機能を含め、すべての機能を表示します</translation>
    </message>
</context>
<context>
    <name>VantoViewer::WindowService</name>
    <message>
        <location filename="../windowservice.cpp" line="+33"/>
        <source>the file or its folder cannot be written</source>
        <translation>ファイルまたはそのフォルダーに書き込めません</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>the file is damaged</source>
        <translation>ファイルが壊れています</translation>
    </message>
</context>
</TS>
