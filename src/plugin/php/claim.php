<?php

/*
 * One broadcast of a transaction, however often and from wherever it is delivered. Who broadcasts it claims its id
 * first, by a row of the options table, as the lock of the names is one. Once the broadcaster has the transaction the
 * row stays for as long as a reference can hold, so that whoever delivers it again gets the same answer; else it goes.
 *
 * Each row begins with the time, by the database's clock, at which it counts no more: then others may claim the id, as
 * that of a killed process, or the row is cleaned away. Who waits for another's broadcast waits a bit longer than it
 * may take.
 */
define( 'BRASSLET_CLAIM', 'brasslet_tx_' );
define( 'BRASSLET_CLAIM_UNTIL', "CAST( SUBSTRING_INDEX( option_value, ' ', 1 ) AS UNSIGNED )" );
define( 'BRASSLET_CLAIM_SECONDS', 30 );
define( 'BRASSLET_CLAIM_PATIENCE', 16 );

// phpcs:disable WordPress.DB -- claims are rows of their own, and brasslet_sql() prepares each statement.

/**
 * Hands a transaction to the broadcaster, unless somebody else has just done so.
 *
 * @param string $txid  The transaction id.
 * @param string $bytes The transaction.
 * @return WP_Error|null Null when the broadcaster has the transaction.
 */
function brasslet_hand_over( $txid, $bytes ) {
	$wpdb = $GLOBALS['wpdb'];
	// What the database complains of belongs into the log, and not before the JSON of the reply.
	$shown   = $wpdb->hide_errors();
	$token   = bin2hex( random_bytes( 16 ) );
	$release = function () use ( $wpdb, $txid, &$token ) {
		if ( '' !== $token ) {
			$sql   = 'DELETE FROM {options} WHERE option_name = %s AND option_value LIKE %s';
			$sql   = brasslet_sql( $sql, BRASSLET_CLAIM . $txid, '% ' . $token );
			$token = '';
			$wpdb->query( $sql );
		}
	};
	// Where PHP ends in the middle, nothing runs what "finally" holds.
	register_shutdown_function( $release );
	try {
		$claimed = brasslet_claim( $txid, $token );
		if ( true !== $claimed ) {
			return $claimed;
		}
		$refusal = brasslet_broadcast( $txid, $bytes );
		if ( null === $refusal ) {
			// Where the database does not take that, the claim goes as after a refusal: ARC takes the same again.
			brasslet_remember_accepted( $txid );
		}
		return $refusal;
	} finally {
		$release();
		$wpdb->show_errors( $shown );
	}
}

/**
 * Claims a transaction id, waiting for whoever has claimed it already.
 *
 * @param string $txid  The transaction id.
 * @param string $token A text that nobody else has.
 * @return true|WP_Error|null True when the claim is had; null when somebody else has brought the transaction to the
 *                            broadcaster meanwhile; or why the claim cannot be had.
 */
function brasslet_claim( $txid, $token ) {
	$wpdb = $GLOBALS['wpdb'];
	$name = BRASSLET_CLAIM . $txid;
	$take = 'INSERT IGNORE INTO {options} ( option_name, option_value, autoload )'
		. ' VALUES ( %s, CONCAT( UNIX_TIMESTAMP() + %d, %s ), %s ) /* CLAIM */';
	$take = brasslet_sql( $take, $name, BRASSLET_CLAIM_SECONDS, ' ' . $token, brasslet_not_autoloaded() );
	// Puts the token in the place of one that counts no more, unless somebody else has done so.
	$take_over = 'UPDATE {options} SET option_value = CONCAT( UNIX_TIMESTAMP() + %d, %s )'
		. ' WHERE option_name = %s AND ' . BRASSLET_CLAIM_UNTIL . ' < UNIX_TIMESTAMP()';
	$take_over = brasslet_sql( $take_over, BRASSLET_CLAIM_SECONDS, ' ' . $token, $name );

	$held     = '';
	$failures = 0;
	$start    = brasslet_seconds();
	while ( brasslet_seconds() < $start + BRASSLET_CLAIM_PATIENCE ) {
		$done = true;
		if ( '' === $held ) {
			$done = $wpdb->query( $take );
			$done = 0 === $done ? $wpdb->query( $take_over ) : $done;
		}
		$held = brasslet_claim_of( $txid );
		if ( $held === $token ) {
			return true;
		}
		if ( 'accepted' === $held ) {
			return null;
		}
		// Several who insert at once can meet a deadlock, which the database ends by refusing one of them.
		if ( false === $done && ++$failures >= BRASSLET_WRITE_TRIES ) {
			return brasslet_unsent(
				'brasslet_store',
				'The database of the site takes nothing at the moment. Deliver the same transaction again later.',
				500
			);
		}
		brasslet_pause();
	}
	return brasslet_error(
		'brasslet_busy',
		'This very transaction is being sent. Deliver it again in a minute to hear what became of it.',
		503
	);
}

/**
 * Reads who has claimed a transaction id.
 *
 * @param string $txid The transaction id.
 * @return string The holder's token, "accepted" when the broadcaster has the transaction, or empty.
 */
function brasslet_claim_of( $txid ) {
	$sql = 'SELECT option_value FROM {options} WHERE option_name = %s'
		. ' AND ' . BRASSLET_CLAIM_UNTIL . ' >= UNIX_TIMESTAMP()';
	$row = $GLOBALS['wpdb']->get_var( brasslet_sql( $sql, BRASSLET_CLAIM . $txid ) );
	return (string) substr( strstr( brasslet_string( $row ), ' ' ), 1 );
}

/**
 * Says whether the broadcaster has taken a transaction within the last day.
 *
 * @param string $txid The transaction id.
 * @return bool
 */
function brasslet_was_accepted( $txid ) {
	return 'accepted' === brasslet_claim_of( $txid );
}

/**
 * Remembers that the broadcaster has a transaction, whoever claims it, and forgets those of the days before.
 *
 * @param string $txid The transaction id.
 */
function brasslet_remember_accepted( $txid ) {
	$sql = 'INSERT INTO {options} ( option_name, option_value, autoload )'
		. ' VALUES ( %s, CONCAT( UNIX_TIMESTAMP() + %d, %s ), %s )'
		. ' ON DUPLICATE KEY UPDATE option_value = VALUES( option_value )';
	$sql = brasslet_sql(
		$sql,
		BRASSLET_CLAIM . $txid,
		BRASSLET_REFERENCE_SECONDS,
		' accepted',
		brasslet_not_autoloaded()
	);
	$GLOBALS['wpdb']->query( $sql );
	brasslet_forget_old_claims();
}

/**
 * Cleans away the claims that count no more.
 */
function brasslet_forget_old_claims() {
	$wpdb = $GLOBALS['wpdb'];
	$sql  = 'DELETE FROM {options} WHERE option_name LIKE %s AND ' . BRASSLET_CLAIM_UNTIL . ' < UNIX_TIMESTAMP()';
	$wpdb->query( brasslet_sql( $sql, $wpdb->esc_like( BRASSLET_CLAIM ) . '%' ) );
}

// phpcs:enable
