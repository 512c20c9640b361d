<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en_US">
<context>
    <name>VantoViewer::AcquisitionActions</name>
    <message>
        <source>Single Shot</source>
        <translation>シングルショット</translation>
    </message>
    <message>
        <source>Continuous Shot</source>
        <translation>連続ショット</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Software Trigger</source>
        <translation>ソフトウェアトリガー</translation>
    </message>
    <message>
        <source>Acquires one image</source>
        <translation>画像を 1 枚取得します</translation>
    </message>
    <message>
        <source>Acquires images until stopped</source>
        <translation>停止するまで画像を取得し続けます</translation>
    </message>
    <message>
        <source>Stops acquiring</source>
        <translation>取得を停止します</translation>
    </message>
    <message>
        <source>Executes TriggerSoftware: one trigger for the camera</source>
        <translation>TriggerSoftware を実行します: カメラへのトリガー 1 回</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ChangeJournal</name>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>やり直し(&amp;R)</translation>
    </message>
    <message>
        <source>Set %1 to %2</source>
        <translation>%1 を %2 に設定</translation>
    </message>
    <message numerus="yes">
        <source>%n feature(s)</source>
        <translation>
            <numerusform>%n 個の機能</numerusform>
        </translation>
    </message>
    <message>
        <source>Load %1</source>
        <translation>%1 を読み込む</translation>
    </message>
    <message>
        <source>the camera is closed</source>
        <translation>カメラは閉じられています</translation>
    </message>
    <message>
        <source>%1: the camera has no such feature</source>
        <translation>%1: カメラにこの機能はありません</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <translation>元に戻しました: %1</translation>
    </message>
    <message>
        <source>Redone: %1</source>
        <translation>やり直しました: %1</translation>
    </message>
    <message>
        <source>Cannot undo &quot;%1&quot;: %2</source>
        <translation>「%1」を元に戻せません: %2</translation>
    </message>
    <message>
        <source>Cannot redo &quot;%1&quot;: %2</source>
        <translation>「%1」をやり直せません: %2</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>%1 を元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>%1 をやり直す(&amp;R)</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ChangesModel</name>
    <message>
        <source>Execute</source>
        <translation>実行</translation>
    </message>
    <message>
        <source>(not read)</source>
        <translation>(未読み取り)</translation>
    </message>
    <message>
        <source>Applied as one step</source>
        <translation>一つの操作として適用</translation>
    </message>
    <message>
        <source>Undone</source>
        <translation>元に戻しました</translation>
    </message>
    <message>
        <source>Undo refused: %1</source>
        <translation>元に戻す操作が拒否されました: %1</translation>
    </message>
    <message>
        <source>Redone</source>
        <translation>やり直しました</translation>
    </message>
    <message>
        <source>Redo refused: %1</source>
        <translation>やり直しが拒否されました: %1</translation>
    </message>
    <message>
        <source>Done (feature set)</source>
        <translation>完了 (機能セット)</translation>
    </message>
    <message>
        <source>Refused (feature set): %1</source>
        <translation>拒否 (機能セット): %1</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>Refused: %1</source>
        <translation>拒否されました: %1</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>時刻</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>機能</translation>
    </message>
    <message>
        <source>Old Value</source>
        <translation>変更前の値</translation>
    </message>
    <message>
        <source>New Value</source>
        <translation>新しい値</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>結果</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ConversionEngine</name>
    <message>
        <source>Pixel format %1 can&apos;t be shown.</source>
        <translation>ピクセルフォーマット %1 は表示できません。</translation>
    </message>
    <message>
        <source>The %1 frame holds no image (%2 × %3).</source>
        <translation>%1 のフレームに画像がありません（%2 × %3）。</translation>
    </message>
    <message>
        <source>A frame of %1 × %2 is too large to be shown.</source>
        <translation>%1 × %2 のフレームは大きすぎて表示できません。</translation>
    </message>
    <message>
        <source>The frame holds %1 bytes; a %2 × %3 %4 image needs %5.</source>
        <translation>フレームは %1 バイトですが、%2 × %3 の %4 画像には %5 バイト必要です。</translation>
    </message>
    <message>
        <source>%1 needs an even width and height; the frame is %2 × %3.</source>
        <translation>%1 には偶数の幅と高さが必要です。フレームは %2 × %3 です。</translation>
    </message>
    <message>
        <source>%1 needs an even width; the frame is %2 × %3.</source>
        <translation>%1 には偶数の幅が必要です。フレームは %2 × %3 です。</translation>
    </message>
    <message>
        <source>There is no memory for an image of %1 × %2.</source>
        <translation>%1 × %2 の画像に必要なメモリがありません。</translation>
    </message>
    <message>
        <source>The conversion of %1 failed.</source>
        <translation>%1 の変換に失敗しました。</translation>
    </message>
</context>
<context>
    <name>VantoViewer::DevicesPane</name>
    <message>
        <source>%1 (lost)</source>
        <translation>%1 (切断)</translation>
    </message>
    <message>
        <source>Found cameras (double-click to open):</source>
        <translation>見つかったカメラ (ダブルクリックで開く):</translation>
    </message>
    <message>
        <source>Camera by IP Address or ID...</source>
        <translation>IP アドレスまたは ID でカメラを指定...</translation>
    </message>
    <message>
        <source>Built-in Simulated Camera</source>
        <translation>内蔵シミュレーションカメラ</translation>
    </message>
    <message>
        <source>Simulated Camera from GenICam File...</source>
        <translation>GenICam ファイルからシミュレーションカメラ...</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Open a camera</source>
        <translation>カメラを開きます</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Close the selected camera</source>
        <translation>選択したカメラを閉じます</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Look for cameras on every network interface and on USB</source>
        <translation>すべてのネットワークインターフェースと USB でカメラを検索します</translation>
    </message>
    <message>
        <source>Scanning...</source>
        <translation>検索中...</translation>
    </message>
    <message>
        <source>Open Camera</source>
        <translation>カメラを開く</translation>
    </message>
    <message>
        <source>IP address or device ID:</source>
        <translation>IP アドレスまたはデバイス ID:</translation>
    </message>
    <message>
        <source>Simulate a Camera</source>
        <translation>カメラをシミュレート</translation>
    </message>
    <message>
        <source>GenICam descriptions (*.xml *.zip)</source>
        <translation>GenICam 記述ファイル (*.xml *.zip)</translation>
    </message>
    <message>
        <source>ID: %1
Serial number: %2
Transport: %3</source>
        <translation>ID: %1
シリアル番号: %2
トランスポート: %3</translation>
    </message>
    <message>
        <source>No cameras found</source>
        <translation>カメラが見つかりません</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>再接続</translation>
    </message>
    <message>
        <source>Open the lost camera again, once it is back</source>
        <translation>切断されたカメラが戻ったら、もう一度開きます</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetActions</name>
    <message>
        <source>Save Features...</source>
        <translation>機能を保存...</translation>
    </message>
    <message>
        <source>Load Features...</source>
        <translation>機能を読み込む...</translation>
    </message>
    <message>
        <source>Compare Features...</source>
        <translation>機能を比較...</translation>
    </message>
    <message>
        <source>Saves the camera&apos;s features to a file</source>
        <translation>カメラの機能をファイルに保存します</translation>
    </message>
    <message>
        <source>Writes the features of a file to the camera</source>
        <translation>ファイルの機能をカメラに書き込みます</translation>
    </message>
    <message>
        <source>Lists the features in which the camera differs from a file or another camera</source>
        <translation>カメラがファイルや別のカメラと異なる機能を一覧表示します</translation>
    </message>
    <message>
        <source>%1 has no features to save</source>
        <translation>%1 には保存できる機能がありません</translation>
    </message>
    <message>
        <source>Cannot read the features of %1: %2</source>
        <translation>%1 の機能を読み取れません: %2</translation>
    </message>
    <message>
        <source>Save Features</source>
        <translation>機能を保存</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1 に書き込めません: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n feature value(s) saved to %1</source>
        <translation>
            <numerusform>%n 個の機能の値を %1 に保存しました</numerusform>
        </translation>
    </message>
    <message>
        <source>Load Features</source>
        <translation>機能を読み込む</translation>
    </message>
    <message>
        <source>Cannot load %1: %2</source>
        <translation>%1 を読み込めません: %2</translation>
    </message>
    <message>
        <source>Writing the features of %1...</source>
        <translation>%1 の機能を書き込んでいます...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>A feature set file...</source>
        <translation>機能セットファイル...</translation>
    </message>
    <message>
        <source>Compare Features</source>
        <translation>機能を比較</translation>
    </message>
    <message>
        <source>Compare %1 with:</source>
        <translation>%1 の比較対象:</translation>
    </message>
    <message>
        <source>Cannot compare with %1: %2</source>
        <translation>%1 と比較できません: %2</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetCompareDialog</name>
    <message>
        <source>Compare Features</source>
        <translation>機能を比較</translation>
    </message>
    <message>
        <source>%1 and %2 hold the same values.</source>
        <translation>%1 と %2 の値は同じです。</translation>
    </message>
    <message numerus="yes">
        <source>%n feature(s) differ between %1 and %2.</source>
        <translation>
            <numerusform>%1 と %2 で %n 個の機能が異なります。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetCompareModel</name>
    <message>
        <source>Feature</source>
        <translation>機能</translation>
    </message>
    <message>
        <source>Only In</source>
        <translation>片方のみ</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetReportDialog</name>
    <message>
        <source>Unknown feature</source>
        <translation>不明な機能</translation>
    </message>
    <message>
        <source>Read-only</source>
        <translation>読み取り専用</translation>
    </message>
    <message>
        <source>Out of range</source>
        <translation>範囲外</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>利用不可</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>ロック中</translation>
    </message>
    <message>
        <source>Invalid value</source>
        <translation>無効な値</translation>
    </message>
    <message>
        <source>Refused by the camera</source>
        <translation>カメラが拒否しました</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>キャンセルされました</translation>
    </message>
    <message>
        <source>Feature Set Loaded</source>
        <translation>機能セットを読み込みました</translation>
    </message>
    <message numerus="yes">
        <source>%1: every line was applied; %n feature(s) changed.</source>
        <translation>
            <numerusform>%1: すべての行を適用しました。%n 個の機能が変更されました。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n line(s) could not be applied.</source>
        <translation>
            <numerusform>%1: %n 行を適用できませんでした。</numerusform>
        </translation>
    </message>
    <message>
        <source>Line</source>
        <translation>行</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>機能</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>理由</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>詳細</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureStatusBar</name>
    <message>
        <source>refused by the camera (access denied)</source>
        <translation>カメラが拒否しました (アクセス拒否)</translation>
    </message>
    <message>
        <source>refused by the camera (value out of range)</source>
        <translation>カメラが拒否しました (範囲外の値)</translation>
    </message>
    <message>
        <source>refused by the camera (invalid value)</source>
        <translation>カメラが拒否しました (無効な値)</translation>
    </message>
    <message>
        <source>not written: the camera did not answer in time</source>
        <translation>書き込まれていません: カメラが時間内に応答しませんでした</translation>
    </message>
    <message>
        <source>not written: the camera is lost</source>
        <translation>書き込まれていません: カメラが切断されています</translation>
    </message>
    <message>
        <source>not written: the camera does not have it</source>
        <translation>書き込まれていません: カメラにこの機能がありません</translation>
    </message>
    <message>
        <source>the write failed</source>
        <translation>書き込みに失敗しました</translation>
    </message>
</context>
<context>
    <name>VantoViewer::HistogramPanel</name>
    <message>
        <source>Logarithmic</source>
        <translation>対数</translation>
    </message>
    <message>
        <source>Counts on a logarithmic scale, so that rare values show</source>
        <translation>まれな値も見えるよう、度数を対数目盛で表示します</translation>
    </message>
    <message>
        <source>%1: min %2, max %3, mean %4</source>
        <translation>%1: 最小 %2、最大 %3、平均 %4</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>画像なし</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ImagePanel</name>
    <message>
        <source>Save Image...</source>
        <translation>画像を保存...</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>全体表示</translation>
    </message>
    <message>
        <source>100 %</source>
        <translation>等倍 (100 %)</translation>
    </message>
    <message>
        <source>Acquisition</source>
        <translation>取得</translation>
    </message>
    <message>
        <source>Shows the whole image</source>
        <translation>画像全体を表示します</translation>
    </message>
    <message>
        <source>Shows one screen pixel per image pixel</source>
        <translation>画像の 1 画素を画面の 1 ピクセルで表示します</translation>
    </message>
    <message>
        <source>Writes the image shown as PNG, TIFF or raw bytes</source>
        <translation>表示中の画像を PNG、TIFF または生バイトで書き出します</translation>
    </message>
    <message>
        <source>The acquisition failed: %1</source>
        <translation>取得に失敗しました: %1</translation>
    </message>
    <message>
        <source>No camera is open. Open one in the Devices pane or the Camera menu.</source>
        <translation>カメラが開かれていません。デバイスペインまたはカメラメニューから開いてください。</translation>
    </message>
    <message>
        <source>This camera has no stream to show.</source>
        <translation>このカメラには表示できるストリームがありません。</translation>
    </message>
    <message>
        <source>Press Continuous Shot (%1) or Single Shot (%2) to see the camera&apos;s image.</source>
        <translation>カメラの画像を見るには、連続ショット (%1) またはシングルショット (%2) を押してください。</translation>
    </message>
    <message>
        <source>%1, %2 × %3 pixels</source>
        <translation>%1、%2 × %3 ピクセル</translation>
    </message>
    <message>
        <source>x %1, y %2: %3</source>
        <translation>画素 x %1, y %2: %3</translation>
    </message>
    <message>
        <source>There is no image to save.</source>
        <translation>保存する画像がありません。</translation>
    </message>
    <message>
        <source>PNG image (*.png)</source>
        <translation>PNG 画像 (*.png)</translation>
    </message>
    <message>
        <source>TIFF image (*.tif *.tiff)</source>
        <translation>TIFF 画像 (*.tif *.tiff)</translation>
    </message>
    <message>
        <source>Raw bytes with a side file (*.raw)</source>
        <translation>生バイトと説明ファイル (*.raw)</translation>
    </message>
    <message>
        <source>Save Image</source>
        <translation>画像を保存</translation>
    </message>
    <message>
        <source>Cannot save %1: %2</source>
        <translation>%1 を保存できません: %2</translation>
    </message>
    <message>
        <source>%1 fps received, %2 displayed, %3 MB/s</source>
        <translation>受信 %1 fps、表示 %2 fps、%3 MB/s</translation>
    </message>
    <message>
        <source>incomplete %1, dropped for display %2</source>
        <translation>不完全 %1、表示で破棄 %2</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ImageWriter</name>
    <message>
        <source>Unknown image file format %1.</source>
        <translation>不明な画像ファイル形式 %1 です。</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1 に書き込めません: %2</translation>
    </message>
    <message>
        <source>The frame holds no bytes.</source>
        <translation>フレームにデータがありません。</translation>
    </message>
</context>
<context>
    <name>VantoViewer::MainWindow</name>
    <message>
        <source>Devices</source>
        <translation>デバイス</translation>
    </message>
    <message>
        <source>Vanto Viewer</source>
        <translation>Vanto Viewer</translation>
    </message>
    <message numerus="yes">
        <source>%n camera(s) found</source>
        <translation>
            <numerusform>%n 台のカメラが見つかりました</numerusform>
        </translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>準備完了</translation>
    </message>
    <message>
        <source>Open Camera by IP Address or ID...</source>
        <translation>IP アドレスまたは ID でカメラを開く...</translation>
    </message>
    <message>
        <source>Open Built-in Simulated Camera</source>
        <translation>内蔵シミュレーションカメラを開く</translation>
    </message>
    <message>
        <source>Close Camera</source>
        <translation>カメラを閉じる</translation>
    </message>
    <message>
        <source>Refresh Features</source>
        <translation>機能を更新</translation>
    </message>
    <message>
        <source>Reads every shown feature from the camera again</source>
        <translation>表示中のすべての機能をカメラから再度読み込みます</translation>
    </message>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>%1 を開けません: %2</translation>
    </message>
    <message>
        <source>Cannot simulate %1: %2</source>
        <translation>%1 をシミュレートできません: %2</translation>
    </message>
    <message>
        <source>the built-in camera</source>
        <translation>内蔵カメラ</translation>
    </message>
    <message>
        <source>%1 is lost: %2</source>
        <translation>%1 との接続が切れました: %2</translation>
    </message>
    <message>
        <source>Visibility</source>
        <translation>表示レベル</translation>
    </message>
    <message>
        <source>Cannot reconnect %1: %2</source>
        <translation>%1 に再接続できません: %2</translation>
    </message>
    <message>
        <source>%1 is connected again</source>
        <translation>%1 に再接続しました</translation>
    </message>
    <message>
        <source>Settings cannot be saved to %1: %2. Changes to the layout and the visibility level are lost when the viewer closes.</source>
        <translation>設定を %1 に保存できません: %2。レイアウトと表示レベルの変更はビューアーを閉じると失われます。</translation>
    </message>
    <message>
        <source>Opening %1...</source>
        <translation>%1 を開いています...</translation>
    </message>
    <message>
        <source>Open Simulated Camera from GenICam File...</source>
        <translation>GenICam ファイルからシミュレートカメラを開く...</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>変更履歴</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>ヒストグラム</translation>
    </message>
    <message>
        <source>&amp;Acquisition</source>
        <translation>取得(&amp;A)</translation>
    </message>
</context>
<context>
    <name>VantoViewer::MenuService</name>
    <message>
        <source>&amp;Camera</source>
        <translation>カメラ(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>ウィンドウ(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
</context>
<context>
    <name>VantoViewer::OpeningProgress</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Opening Camera</source>
        <translation>カメラを開いています</translation>
    </message>
</context>
<context>
    <name>VantoViewer::PixelReader</name>
    <message>
        <source>%1 (%2-bit)</source>
        <translation>%1（%2 ビット）</translation>
    </message>
</context>
<context>
    <name>VantoViewer::PluginManager</name>
    <message>
        <source>%1 is no Vanto Viewer plug-in: %2</source>
        <translation>%1 は Vanto Viewer のプラグインではありません: %2</translation>
    </message>
    <message>
        <source>Cannot load %1: %2</source>
        <translation>%1 を読み込めません: %2</translation>
    </message>
    <message>
        <source>The plug-in %1 did not start.</source>
        <translation>プラグイン %1 を開始できませんでした。</translation>
    </message>
</context>
<context>
    <name>VantoViewer::VisibilityToolBar</name>
    <message>
        <source>Visibility</source>
        <translation>表示レベル</translation>
    </message>
    <message>
        <source>Beginner</source>
        <translation>初級</translation>
    </message>
    <message>
        <source>Show the features needed for basic camera set-up</source>
        <translation>基本的なカメラ設定に必要な機能を表示します</translation>
    </message>
    <message>
        <source>Expert</source>
        <translation>上級</translation>
    </message>
    <message>
        <source>Also show the features for advanced set-up</source>
        <translation>高度な設定用の機能も表示します</translation>
    </message>
    <message>
        <source>Guru</source>
        <translation>エキスパート</translation>
    </message>
    <message>
        <source>Show every feature, including those that need care</source>
        <translation>注意が必要な機能を含め、すべての機能を表示します</translation>
    </message>
</context>
<context>
    <name>VantoViewer::WindowService</name>
    <message>
        <source>the file or its folder cannot be written</source>
        <translation>ファイルまたはそのフォルダーに書き込めません</translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation>ファイルが壊れています</translation>
    </message>
</context>
</TS>
