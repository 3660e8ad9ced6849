Public Class ReportForm

    Private Sub btnShow_Click(sender As Object, e As EventArgs) Handles btnShow.Click
        lvOrders.Items.Clear()
    End Sub

    Private Sub btnClose_Click(sender As Object, e As EventArgs) Handles btnClose.Click
        Close()
    End Sub

End Class
