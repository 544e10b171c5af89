pragma Singleton
import QtQuick

/// Every colour, size and duration of the window. The window sets the first properties;
/// everything else follows from them. Text and the heights that contain text grow with `fontScale`;
/// spacing and outlines do not.
QtObject {
    id: theme

    property bool dark: false
    property real fontScale: 1
    /// The room of rows: -1 is compact, 1 is roomy.
    property int density: 0
    /// The window is a display on the wall: no cards, nothing scrolls.
    property bool board: false
    property bool reducedMotion: false
    property bool showsPictures: false
    /// Quiet text and lines are as clear as the rest.
    property bool highContrast: false

    function scaled(pixels: real): int {
        return Math.round(pixels * fontScale);
    }
    /// The height of a row, which is never smaller than a target of the pointer.
    function row(pixels: real, step = rowStep): int {
        return Math.max(leastTarget, scaled(pixels) + density * step);
    }

    // Grounds
    readonly property color canvas: dark ? "#0F0F11" : "#F4F4F6"
    readonly property color sidebar: dark ? "#131316" : "#F4F4F6"
    readonly property color surface: dark ? "#17171A" : "#FFFFFF"
    readonly property color raised: dark ? "#202024" : "#FFFFFF"
    readonly property color field: dark ? "#202024" : "#F2F2F4"
    readonly property color hover: dark ? "#1E1E22" : "#F4F4F6"
    readonly property color press: dark ? "#29292E" : "#E9E9ED"
    readonly property color selected: dark ? "#262440" : "#ECEAFB"
    readonly property color selectedIdle: dark ? "#26262B" : "#EAEAEE"
    readonly property color navSelected: dark ? "#29292E" : "#E4E4E9"
    /// A half of a sheet or a note inside one; in the dark `field` would vanish there.
    readonly property color recess: dark ? "#17171A" : "#F2F2F4"
    readonly property color skeleton: dark ? "#26262B" : "#E9E9ED"
    readonly property color scrim: dark ? Qt.rgba(0, 0, 0, 0.58) : Qt.rgba(24 / 255, 24 / 255, 28 / 255, 0.32)

    // Lines
    readonly property color hairline: highContrast ? dark ? "#787883" : "#8A8A94" : dark ? "#27272C" : "#E4E4E8"
    readonly property color border: highContrast ? dark ? "#B6B6C0" : "#4A4A54" : dark ? "#3B3B43" : "#D2D2D8"
    readonly property color edge: highContrast ? dark ? "#ECECF0" : "#18181C" : dark ? "#787883" : "#8A8A94"

    // Text
    readonly property color text1: highContrast ? dark ? "#FFFFFF" : "#000000" : dark ? "#ECECF0" : "#18181C"
    readonly property color text2: highContrast ? dark ? "#F0F0F4" : "#18181C" : dark ? "#B6B6C0" : "#4A4A54"
    readonly property color text3: highContrast ? dark ? "#DCDCE4" : "#2A2A32" : dark ? "#9494A0" : "#64646E"
    readonly property color tip: dark ? "#E6E6EA" : "#26262B"
    readonly property color textOnTip: dark ? "#18181C" : "#F4F4F6"

    // The one accent
    readonly property color accent: dark ? "#6A5FE0" : "#5347C7"
    readonly property color accentText: highContrast ? dark ? "#CFCBFF" : "#32289A" : dark ? "#AAA3FF" : "#5044C2"
    readonly property color accentHover: Qt.darker(accent, 1.08)
    readonly property color accentPress: Qt.darker(accent, 1.18)
    readonly property color textOnAccent: "#FFFFFF"
    readonly property color lineOnAccent: Qt.rgba(1, 1, 1, 0.5)
    readonly property color accentSoft: dark ? "#262440" : "#ECEAFB"
    readonly property color accentLine: dark ? "#4B4690" : "#B9B3EE"

    // What is known: words and marks
    readonly property color green: highContrast ? dark ? "#A9F0C6" : "#0B4023" : dark ? "#6ACB95" : "#17693C"
    readonly property color greenSoft: dark ? "#172B20" : "#E2F2E8"
    readonly property color greenMark: dark ? "#43B878" : "#2B9A5B"
    readonly property color blue: highContrast ? dark ? "#B9DAFF" : "#0D3B70" : dark ? "#7DB8F4" : "#1A5BA3"
    readonly property color blueSoft: dark ? "#17283B" : "#E3EDF9"
    readonly property color blueMark: dark ? "#5A9FE6" : "#3C82CC"
    readonly property color report: dark ? "#D6D6DD" : "#34343C"
    readonly property color reportSoft: dark ? "#2C2C32" : "#E4E4E9"
    readonly property color amber: highContrast ? dark ? "#FFD894" : "#553300" : dark ? "#E3B15E" : "#835000"
    readonly property color amberSoft: dark ? "#302613" : "#FAEFD8"
    readonly property color amberMark: dark ? "#D99A33" : "#C98410"
    readonly property color red: highContrast ? dark ? "#FFBDB8" : "#7D120C" : dark ? "#F68F88" : "#AE241C"
    readonly property color redSoft: dark ? "#371D1C" : "#FBE8E6"
    readonly property color redMark: dark ? "#EB5F56" : "#D2372D"

    /// The ground of the words that a search, a beat or a rule matched.
    readonly property color match: dark ? "#4A3D12" : "#FBE9A6"

    readonly property real disabledOpacity: 0.45
    readonly property real chartFillOpacity: 0.07
    /// The opacity that each row of skeletons loses against the one above.
    readonly property real skeletonLoss: 0.18

    // Type, in the order of DeskText.Type
    readonly property list<TextStyle> textStyles: [
        TextStyle { size: 11; line: 16; scale: theme.fontScale },
        TextStyle { size: 11; line: 16; weight: Font.Medium; scale: theme.fontScale },
        TextStyle { size: 11; line: 16; weight: Font.DemiBold; scale: theme.fontScale },
        TextStyle { size: 12; line: 16; scale: theme.fontScale },
        TextStyle { size: 12; line: 16; weight: Font.Medium; scale: theme.fontScale },
        TextStyle { size: 12; line: 16; weight: Font.DemiBold; scale: theme.fontScale },
        TextStyle { size: 13; line: 20; scale: theme.fontScale },
        TextStyle { size: 13; line: 20; weight: Font.Medium; scale: theme.fontScale },
        TextStyle { size: 13; line: 20; weight: Font.DemiBold; scale: theme.fontScale },
        TextStyle { size: 15; line: 20; weight: Font.DemiBold; scale: theme.fontScale },
        TextStyle { size: 15; line: 24; scale: theme.fontScale },
        TextStyle { size: 18; line: 24; weight: Font.DemiBold; scale: theme.fontScale },
        TextStyle { size: 24; line: 32; weight: Font.DemiBold; spacing: -0.3; scale: theme.fontScale },
        TextStyle { size: 24; line: 32; weight: Font.DemiBold; spacing: -0.3; scale: theme.fontScale },
        TextStyle { size: 48; line: 56; weight: Font.DemiBold; spacing: -0.3; scale: theme.fontScale }
    ]
    /// The line of a 13 px title or sentence inside a panel.
    readonly property int panelLine: scaled(18)

    // Spacing
    readonly property int space1: 4
    readonly property int space2: 8
    readonly property int space3: 12
    readonly property int space4: 16
    readonly property int space5: 20
    readonly property int space6: 24
    readonly property int space7: 28
    readonly property int space8: 32
    readonly property int line: 1
    /// Optical steps inside a text block.
    readonly property int step1: 1
    readonly property int step2: 2
    readonly property int step3: 3

    // Radii
    readonly property int radiusBar: 2
    readonly property int radiusBadge: 4
    readonly property int radiusControl: 6
    readonly property int radiusPanel: 8
    readonly property int radiusSheet: 12

    // The window and its parts
    readonly property int windowWidth: 1360
    readonly property int windowHeight: 860
    readonly property int windowLeastWidth: 960
    readonly property int windowLeastHeight: 600
    readonly property int sidebarWidth: 240
    readonly property int sidebarLeast: 200
    readonly property int sidebarMost: 360
    readonly property int sidebarItem: row(28)
    readonly property int sidebarFoot: scaled(40)
    readonly property int wireWidth: 580
    readonly property int wireLeast: 400
    readonly property int readerLeast: 400
    readonly property int readerText: 640
    readonly property int readerPadding: 28
    readonly property int readerPicture: 220
    /// Narrower than this, the reader's actions move into its menu.
    readonly property int readerActionsLeast: 480
    readonly property int toolbar: scaled(52)
    readonly property int listHeader: scaled(44)
    readonly property int bar: scaled(36)

    // Rows. A wire row is its paddings, a meta line and lines of text.
    readonly property int rowStep: 3
    readonly property int excerptLines: density < 0 ? 1 : 2
    readonly property int rowPaddingTop: 9 + density * rowStep
    readonly property int rowPaddingBottom: 10 + density * rowStep
    readonly property int rowText: 24
    readonly property int rowEnd: 16
    readonly property int wireRowTall: scaled(91) + density * 2 * rowStep - (excerptLines < 2 ? scaled(16) : 0)
    readonly property int ageColumn: scaled(44)
    readonly property int timelineTime: scaled(36)
    readonly property int timelineMark: scaled(31)
    readonly property int timelineOutlet: scaled(96)
    readonly property int searchWidth: scaled(264)
    readonly property int searchLeast: scaled(140)
    readonly property int pageSearch: scaled(220)
    readonly property int selectionBar: 3
    readonly property int thumbnailWidth: 72
    readonly property int thumbnailHeight: 48
    /// In panels: two lines of a headline.
    readonly property int smallThumbnailWidth: scaled(54)
    readonly property int smallThumbnailHeight: 2 * panelLine
    readonly property int smallThumbnailFrom: scaled(300)
    readonly property int appIcon: 28
    readonly property int compactPaddingTop: 8 + density * rowStep
    readonly property int compactPaddingBottom: 9 + density * rowStep
    readonly property int tableRow: row(28)
    readonly property int tableHeader: scaled(20)
    readonly property int softwareRow: scaled(33)
    readonly property int topStoriesRow: row(64, 2 * rowStep)
    readonly property int clusterRow: row(60, 2 * rowStep)
    readonly property int clusterText: 80
    readonly property int clusterTime: scaled(48)
    readonly property int scoopsRow: row(46)
    readonly property int paletteRow: scaled(32)
    readonly property int paletteWidth: 640
    readonly property int paletteTop: 104
    readonly property real paletteMostHeight: 0.7
    readonly property int pickerRow: scaled(44)
    readonly property int pickerRowTall: scaled(58)
    readonly property int pickerWidth: 348
    readonly property int pickerPreview: scaled(92)

    // Parts of pages and sheets
    readonly property int sectionLabel: scaled(28)
    readonly property int barFieldWidth: scaled(180)
    readonly property int correctionMatches: scaled(172)

    // Newsrooms
    readonly property int gridColumns: 12
    readonly property int gridPadding: 20
    readonly property int gridGap: 12
    readonly property int gridRow: scaled(116)
    /// A narrower grid can't be edited beside the picker, which lies over it then.
    readonly property int gridLeast: 560
    readonly property int handle: 9
    readonly property int handleLong: 27
    /// Pixels that a grid scrolls at a time while a panel is held at its edge.
    readonly property int scrollStep: 12
    readonly property int panelHeader: scaled(36)
    readonly property int panelPadding: 12

    // Controls
    readonly property int control: scaled(28)
    readonly property int controlInSheet: scaled(32)
    readonly property int smallSegmented: scaled(24)
    readonly property int leastTarget: 28
    readonly property int noteHeight: scaled(128)
    readonly property int fieldHeight: scaled(32)
    readonly property int mainFieldHeight: scaled(36)
    // Columns of the table of sources
    readonly property int sourceSwitch: scaled(40)
    readonly property int sourceName: scaled(150)
    readonly property int sourceNameMore: scaled(80)
    readonly property int sourceGroup: scaled(92)
    readonly property int sourceTime: scaled(100)
    readonly property int sourceNext: scaled(76)
    readonly property int sourceCount: scaled(52)
    readonly property int sourceMeasure: scaled(60)
    readonly property int sourceState: scaled(140)
    readonly property int sourceFailureTime: scaled(112)
    readonly property int sourcesBarFrom: scaled(860)

    readonly property int wordToken: scaled(24)
    readonly property int wordTokenLine: scaled(28)
    readonly property int wordTokenCross: scaled(10)
    readonly property int wordTokenMostLines: 4
    readonly property int wordTokenLeastInput: scaled(60)
    readonly property int badge: scaled(16)
    readonly property int badgePadding: 5
    readonly property int badgeGap: 6
    readonly property int controlPadding: 11
    readonly property int sheetControlPadding: 15
    readonly property int chipPadding: 10
    readonly property int focusRing: 2
    readonly property int focusGap: 2
    readonly property int tickBox: 16
    readonly property int switchWidth: 28
    readonly property int switchHeight: 16
    readonly property int switchKnob: 12
    readonly property int unreadDot: 6
    readonly property int markCircle: 6
    readonly property int markSquare: 7
    readonly property real markRing: 1.5
    readonly property int markBox: 8
    readonly property int markBoxSidebar: 16
    readonly property int scrollThumb: 4
    readonly property int scrollMargin: 2
    readonly property int scrollLeast: 24
    readonly property int progress: 2
    readonly property int sheetWidth: 680
    readonly property int smallSheetWidth: 520
    readonly property int wideSheetWidth: 900
    /// Of a sheet's width, for what is chosen, beside what comes of it.
    readonly property real sheetFormShare: 0.55
    readonly property int newNewsroomHeight: 540
    readonly property int templateCard: scaled(158)
    readonly property int planHeight: 220
    readonly property int beatSheetHeight: 676
    readonly property int beatForm: 440
    readonly property int ruleSheetWidth: 920
    readonly property int ruleSheetHeight: 700
    readonly property int ruleForm: 472
    readonly property int previewBars: scaled(32)
    readonly property int previewBarGap: 4
    readonly property int settingsHeight: 740
    readonly property int settingsSections: 236
    readonly property int settingControl: 280
    readonly property int settingNumber: scaled(96)
    readonly property int sheetMargin: 24
    readonly property int sheetSideColumn: scaled(220)
    readonly property int attemptTime: scaled(48)
    readonly property int previewAge: scaled(72)
    readonly property int sheetHeader: scaled(52)
    readonly property int sheetFoot: scaled(60)
    readonly property int popoverWidth: 320
    readonly property int menuLeast: 180
    readonly property int menuMost: 360
    readonly property int tipMost: 280
    readonly property int messageMost: 320
    readonly property int noticeMost: 480

    // Icons
    readonly property int icon: scaled(16)
    readonly property int iconInHeader: scaled(14)
    readonly property int iconInMeta: scaled(12)
    readonly property int iconInMessage: scaled(24)

    // History of a service, one cell a day
    readonly property int cellWidth: 11
    readonly property int cellGap: 3
    readonly property int cellUp: 4
    readonly property int cellIssue: 10
    readonly property int cellOutage: 16

    /// The same over 90 days.
    readonly property int dayCellWidth: 3
    readonly property int dayCellGap: 1
    readonly property int dayCellLine: 1

    // Charts
    readonly property real chartLine: 1.5
    readonly property real sparkline: 1.25
    readonly property list<real> chartDashes: [5, 3]
    readonly property list<real> chartDots: [1.5, 2.5]
    readonly property int sparklineWidth: 56
    readonly property int sparklineHeight: 16
    readonly property int chartMark: 7
    readonly property int chartPoint: 9
    readonly property int chartTip: scaled(20)
    readonly property int chartEventMost: scaled(160)
    readonly property int chartAllTimesFrom: scaled(270)

    // Columns of tracker panels, and the widths from which they are shown
    readonly property int countdownRow: scaled(24)
    readonly property int daysColumn: scaled(32)
    readonly property int dateColumnMost: scaled(120)
    readonly property int dateColumnFrom: scaled(200)
    readonly property int platformColumn: scaled(62)
    readonly property int softwareWideFrom: scaled(320)
    readonly property int softwareBetasFrom: scaled(200)
    readonly property int recentFrom: scaled(360)
    readonly property int symbolColumn: scaled(72)
    readonly property int priceColumn: scaled(72)
    readonly property int currencyColumn: scaled(32)
    readonly property int changeColumn: scaled(60)
    readonly property int shareLineFrom: scaled(280)
    readonly property int shareNameFrom: scaled(380)
    readonly property int shareCurrencyFrom: scaled(440)
    readonly property int buildColumn: scaled(64)
    readonly property int buildColumnFrom: scaled(300)
    readonly property int releaseAgeColumn: scaled(64)
    readonly property int rankColumn: scaled(24)

    // The shadow of floating items; the extent is that of ShadowImages.
    readonly property int shadowExtent: 64
    readonly property int shadowCorner: 48

    // A display on the wall, from the distance of which type is read
    readonly property int boardMargin: 40
    readonly property int boardGap: 32
    readonly property int boardIcon: scaled(18)
    readonly property int boardRowLeast: scaled(72)
    readonly property real boardScale: 1.5

    // Durations in milliseconds
    readonly property int fade: reducedMotion ? 0 : 120
    readonly property int move: reducedMotion ? 0 : 120
    readonly property int tipDelay: 500
    readonly property int scrollTick: 16
    /// After the current event has been handled.
    readonly property int nextTurn: 0
    /// The pause after which scrolling has ended.
    readonly property int scrollRest: 300
    readonly property int noticeTime: 6000
}
