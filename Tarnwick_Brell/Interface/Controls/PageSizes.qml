pragma Singleton
import QtQuick

/// The measures of single pages and their columns, in the steps of the theme, which has what other views
/// share.
QtObject {
    // Pages: a body and at most one pane at its right
    readonly property int paneLog: 320
    readonly property int paneTrade: 360
    readonly property int paneRecordLeast: 380
    /// A column of names is elided last and is never narrower.
    readonly property int nameColumnLeast: Theme.scaled(120)
    readonly property int columnGap: 24
    readonly property int serviceColumn: Theme.scaled(176)
    readonly property int shareColumn: Theme.scaled(80)
    readonly property int lastIncidentColumn: Theme.scaled(117)
    /// Narrower than this, the days of a service are the last 30.
    readonly property int daysLeast: 30
    readonly property int tableTitle: Theme.scaled(44)
    readonly property int calendarPane: Theme.scaled(288)
    readonly property int calendarCell: Theme.scaled(12)
    readonly property int calendarGap: 3
    readonly property int coverageBar: 8
    readonly property int coverageWidth: Theme.scaled(80)
    readonly property int coverageShare: Theme.scaled(44)
    readonly property int archiveTime: Theme.scaled(92)
    readonly property list<real> levelOpacities: [0, 0.22, 0.42, 0.66, 1]
    readonly property int platformCardLeast: Theme.scaled(150)
    readonly property int platformCardHeight: Theme.scaled(172)
    readonly property int cardGap: 12
    readonly property int releasePlatform: Theme.scaled(120)
    readonly property int releaseVersion: Theme.scaled(184)
    readonly property int releaseBuild: Theme.scaled(96)
    readonly property int releaseChannel: Theme.scaled(92)
    readonly property int releaseAfter: Theme.scaled(104)
    readonly property int releaseSeen: Theme.scaled(108)
    readonly property int eventRow: Theme.row(52)
    readonly property int eventDate: Theme.scaled(44)
    readonly property int eventDays: Theme.scaled(88)
    readonly property int nextEvent: Theme.scaled(132)
    readonly property int nextEventDays: Theme.scaled(96)
    readonly property int eventButtons: Theme.scaled(116)
    readonly property int barFieldLeast: Theme.scaled(96)

    // The log of what happened outside the wire
    readonly property int logList: 620
    readonly property int logRow: Theme.row(54)
    readonly property int logTime: Theme.scaled(44)
    readonly property int logSymbol: Theme.scaled(28)

    // Filings, trades of insiders, courts and press releases
    readonly property int paneRecordMost: 480
    readonly property int recordBadge: Theme.scaled(96)
    readonly property int recordCompany: Theme.scaled(88)
    readonly property int recordWhen: Theme.scaled(124)
    readonly property int insiderPersonLeast: Theme.scaled(120)
    readonly property int insiderDid: Theme.scaled(112)
    readonly property int insiderShares: Theme.scaled(72)
    readonly property int insiderAverage: Theme.scaled(62)
    readonly property int insiderValue: Theme.scaled(80)
    readonly property int insiderHolding: Theme.scaled(68)
    readonly property int insiderPlan: Theme.scaled(108)
    readonly property int insiderDay: Theme.scaled(60)
    readonly property int insiderNote: Theme.scaled(20)
    readonly property int caseList: 340
    readonly property int docketLeast: 420
    readonly property int entryRow: Theme.row(36)
    readonly property int revisionPoint: 8
    readonly property int historySheet: 720
    readonly property int revisionStrip: 24
    readonly property int entryDay: Theme.scaled(64)
    readonly property int entryNumber: Theme.scaled(32)
    readonly property int entryKind: Theme.scaled(104)
    readonly property int sheetLead: Theme.scaled(96)
    readonly property int sheetExhibit: Theme.scaled(48)
    readonly property int sheetParagraphLines: 60

    // Top stories and who had them first
    readonly property int topStoriesTime: Theme.scaled(48)
    readonly property int topStoriesOutlet: Theme.scaled(108)
    readonly property int firstWithItRow: Theme.scaled(50)
    readonly property int firstsRow: Theme.scaled(24)
    readonly property int firstsName: Theme.scaled(92)

    // The timeline of a subject
    readonly property int timelineLaneName: Theme.scaled(100)
    readonly property int timelineEnd: Theme.scaled(40)
    readonly property int timelineLine: Theme.scaled(24)
    readonly property int timelineStages: Theme.scaled(112)
    readonly property int timelineBars: Theme.scaled(24)
    readonly property int timelineStep: Theme.scaled(56)
    readonly property int timelineDate: Theme.scaled(68)
    readonly property int timelineBadge: Theme.scaled(104)
    readonly property int timelineClaimant: Theme.scaled(112)
    readonly property int timelineOutcome: Theme.scaled(168)
    readonly property int timelineListLeast: Theme.scaled(480)
    readonly property int timelineSubjectMost: Theme.scaled(260)

    // Findings in Apple's public files
    readonly property int findingList: 480
    readonly property int findingPaneLeast: 480
    readonly property int findingRow: Theme.row(54)
    readonly property int findingNode: Theme.scaled(77)
    readonly property int findingText: Theme.scaled(96)
    readonly property int timelineNode: 7
    readonly property int codeLine: Theme.scaled(20)
    readonly property int codeNumber: Theme.scaled(36)
    readonly property int codeSign: Theme.scaled(12)
    readonly property font codeFont: Qt.font({
        family: "monospace",
        pixelSize: Theme.scaled(11)
    })

    // Columns of the update catalogue
    readonly property int offerPlatformColumn: Theme.scaled(100)
    readonly property int offerVersionColumn: Theme.scaled(132)
    readonly property int offerBuildColumn: Theme.scaled(92)
    readonly property int offerPostedColumn: Theme.scaled(92)
    readonly property int offerExpiryColumn: Theme.scaled(108)
    readonly property int offerDevicesColumn: Theme.scaled(64)
    readonly property int changeSignColumn: 16

    // The signing matrix
    readonly property int signingDeviceColumn: Theme.scaled(264)
    readonly property int signingDeviceLeast: Theme.scaled(168)
    readonly property int signingColumn: Theme.scaled(62)
    readonly property int signingMark: 16
    readonly property int signingHeader: Theme.scaled(56)
    readonly property int signingLine: Theme.scaled(16)
    readonly property real signingDash: 2

    // The charts of the App Store
    readonly property int chartsRow: Theme.row(44)
    readonly property int chartsColumnLeast: Theme.scaled(280)
    readonly property int chartsMoveColumn: Theme.scaled(44)
    readonly property int rankCurveWidth: 72
    readonly property int rankCurveHeight: 20
    readonly property int rankCurveFrom: Theme.scaled(340)
    readonly property int rankChartHeight: 150
    readonly property int rankScaleColumn: Theme.scaled(30)
    readonly property int factDayColumn: Theme.scaled(84)

    // Races and the rumor ledger
    readonly property int raceRow: Theme.scaled(52)
    readonly property int raceOutletLeast: Theme.scaled(120)
    readonly property int raceNumberColumn: Theme.scaled(72)
    readonly property int raceLeadColumn: Theme.scaled(104)
    readonly property int raceBarWidth: 5
    readonly property int raceBarGap: 3
    readonly property int raceBarHeight: 18
    readonly property int shareBarWidth: Theme.scaled(88)
    readonly property int shareBarHeight: 6
    readonly property int shareBarGap: 2
    readonly property int ledgerDaysColumn: Theme.scaled(88)
    readonly property int pairRaceRow: Theme.scaled(52)
    readonly property int claimRow: Theme.scaled(52)

    // The page of the markets
    readonly property int marketSymbolColumn: Theme.scaled(76)
    readonly property int marketPriceColumn: Theme.scaled(72)
    readonly property int marketChangeColumn: Theme.scaled(62)
    readonly property int marketLine: 40
    readonly property int marketChartLeast: Theme.scaled(420)
    readonly property int legendLine: 16
    readonly property int marketChartHeight: Theme.scaled(200)
    /// Of the page's height below the price.
    readonly property real marketChartShare: 0.42
    readonly property int marketMoveRow: Theme.row(54)
    readonly property int marketLetterColumn: Theme.scaled(28)
    readonly property int marketDayColumn: Theme.scaled(84)
    readonly property int marketMoveColumn: Theme.scaled(72)

    // What the user keeps
    readonly property int keptText: Theme.gridPadding + Theme.scaled(24)
    readonly property real keptPaneShare: 0.5
    readonly property real memberPaneShare: 0.38
    readonly property int memberTime: Theme.scaled(40)
    readonly property int memberNode: Theme.gridPadding + Theme.scaled(44)
    readonly property int memberCircle: 20
    readonly property int memberText: memberNode + Theme.scaled(32)
}
