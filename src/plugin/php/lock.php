<?php

/*
 * How long a change of the names waits for another one. A holder of the lock that shows no change for so long is taken
 * for dead; whoever waits gives up before the desktop program does, which is after 20 seconds.
 */
define( 'BRASSLET_LOCK_EXPIRES', 10 );
define( 'BRASSLET_LOCK_PATIENCE', 15 );
define( 'BRASSLET_WRITE_TRIES', 4 );

// phpcs:disable WordPress.DB -- the lock is a row of its own, and brasslet_sql() prepares each statement.

/**
 * Takes the lock of the record: a row of the options table, which WordPress locks its own updates by as well.
 *
 * That works with every engine and on every host. The holder deletes the row. One that died leaves it: who has seen the
 * very same token for long enough puts its own in its place, so that no clocks of several web servers are compared.
 *
 * Writing comes first, also for the sake of databases with replicas: after a write to a table, what sends the queries
 * to them lets the request read that table from the primary.
 *
 * @param string $token A text that nobody else has.
 * @return true|WP_Error True, or why the lock cannot be had.
 */
function brasslet_lock( $token ) {
	$wpdb = $GLOBALS['wpdb'];
	$take = 'INSERT IGNORE INTO {options} ( option_name, option_value, autoload ) VALUES ( %s, %s, %s ) /* LOCK */';
	$take = brasslet_sql( $take, BRASSLET_LOCK, $token, 'no' );
	$look = brasslet_sql( 'SELECT option_value FROM {options} WHERE option_name = %s', BRASSLET_LOCK );
	// Puts the token in the place of a dead holder's, unless somebody else has done so.
	$take_over = 'UPDATE {options} SET option_value = %s WHERE option_name = %s AND option_value = %s';

	$holder   = null;
	$failures = 0;
	$start    = brasslet_seconds();
	$since    = $start;
	while ( brasslet_seconds() < $start + BRASSLET_LOCK_PATIENCE ) {
		if ( null === $holder ) {
			$done = $wpdb->query( $take );
		} elseif ( brasslet_seconds() >= $since + BRASSLET_LOCK_EXPIRES ) {
			$done = $wpdb->query( brasslet_sql( $take_over, $token, BRASSLET_LOCK, $holder ) );
		} else {
			$done = true;
		}
		// Several who insert at once can meet a deadlock, which the database ends by refusing one of them.
		if ( false === $done && ++$failures >= BRASSLET_WRITE_TRIES ) {
			return brasslet_store_error();
		}
		$seen = $wpdb->get_var( $look );
		if ( $seen === $token ) {
			return true;
		}
		if ( $seen !== $holder ) {
			$holder = $seen;
			$since  = brasslet_seconds();
		}
		brasslet_pause();
	}
	return brasslet_error( 'brasslet_busy', 'The site is busy with other names. Try again in a minute.', 503 );
}

// phpcs:enable

/**
 * The time by a clock that nobody sets.
 *
 * @return float Seconds.
 */
function brasslet_seconds() {
	return hrtime( true ) / 1e9;
}

/**
 * Waits for a moment, of a length that keeps those who wait from doing so in step.
 */
function brasslet_pause() {
	usleep( random_int( 10000, 60000 ) );
}
