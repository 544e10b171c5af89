pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Filings, trades of insiders, dockets and press releases: the list of the tab, and beside it the
/// chosen record.
PageBody {
    id: page

    required property RecordsPageModel content
    readonly property bool isCourt: content.tab === RecordsPageModel.Court
    readonly property TableList list: {
        switch (content.tab) {
        case RecordsPageModel.Insiders: return insiders.list;
        case RecordsPageModel.Court: return cases.list;
        case RecordsPageModel.Press: return press.list;
        default: return filings.list;
        }
    }

    function step(by: int) {
        if (docket.activeFocus)
            docket.step(by);
        else
            list.step(by);
    }
    function switchPane() {
        split.switchPane();
    }

    PageSplit {
        id: split

        anchors.fill: parent
        focus: true
        mainLeast: page.isCourt ? PageSizes.caseList : page.content.tab === RecordsPageModel.Insiders ? insiders.columnsLeast : Theme.wireLeast
        paneWidth: {
            if (page.isCourt)
                return Math.max(PageSizes.docketLeast, width - PageSizes.caseList - Theme.line);
            if (page.content.tab === RecordsPageModel.Insiders)
                return PageSizes.paneTrade;
            return Math.min(PageSizes.paneRecordMost, Math.max(PageSizes.paneRecordLeast, width - Theme.wireLeast - Theme.line));
        }
        pane: page.isCourt ? docket : record

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        RecordTable {
            id: filings

            anchors.fill: parent
            anchors.bottomMargin: foot.height
            visible: page.content.tab === RecordsPageModel.Filings
            focus: page.content.tab === RecordsPageModel.Filings
            content: page.content
            split: split
            label: qsTr("Filings")
            rows: page.content.filings
            badgeName: qsTr("Form")
            textName: qsTr("What it tells")
            whenName: qsTr("Accepted")
        }
        InsiderTable {
            id: insiders

            anchors.fill: parent
            anchors.bottomMargin: foot.height
            visible: page.content.tab === RecordsPageModel.Insiders
            focus: page.content.tab === RecordsPageModel.Insiders
            content: page.content
            split: split
        }
        CaseList {
            id: cases

            anchors.fill: parent
            anchors.bottomMargin: foot.height
            visible: page.isCourt
            focus: page.isCourt
            content: page.content
            split: split
        }
        RecordTable {
            id: press

            anchors.fill: parent
            anchors.bottomMargin: foot.height
            visible: page.content.tab === RecordsPageModel.Press
            focus: page.content.tab === RecordsPageModel.Press
            content: page.content
            split: split
            label: qsTr("Press releases")
            rows: page.content.press
            badgeName: qsTr("Share")
            textName: qsTr("Title")
            whenName: qsTr("Published")
        }
        EmptyState {
            anchors.centerIn: parent
            width: Math.min(parent.width - 2 * Theme.gridPadding, PageSizes.paneRecordLeast)
            visible: page.content.nothingShown !== ""
            text: page.content.nothingShown
            action: page.content.nothingAction
            onActed: page.content.actOnNothing()
        }
        PageFoot {
            id: foot

            anchors.bottom: parent.bottom
            width: parent.width
            text: page.content.footText
        }
    }
    RecordPane {
        id: record

        visible: false
        content: page.content
    }
    DocketPane {
        id: docket

        visible: false
        content: page.content
    }
}
