// pending
