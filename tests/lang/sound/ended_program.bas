10 ' The music of an ended program plays to its end.
20 PLAY "MBCD":END
