import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The sourcing of a story; hidden when it has no label.
Badge {
    required property int sourcing

    visible: sourcing !== StorySourcing.Unlabeled
    kind: {
        switch (sourcing) {
        case StorySourcing.Confirmed:
            return Badge.Confirmed;
        case StorySourcing.OnRecord:
            return Badge.OnRecord;
        case StorySourcing.Report:
            return Badge.Report;
        case StorySourcing.Rumor:
            return Badge.Rumor;
        default:
            return Badge.Outline;
        }
    }
}
