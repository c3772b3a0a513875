<?php

/**
 * Reads the published names.
 *
 * @return array Rows of "alias", "pubkey", "address" and "house", by alias. PHP makes whole numbers of keys like "123",
 *               so the alias as text is the row's own.
 */
function brasslet_rows() {
	return brasslet_rows_in( brasslet_stored()['text'] );
}

// phpcs:disable WordPress.DB -- the record comes from the database itself, and brasslet_sql() prepares each statement.

/**
 * Reads the record as the database has it.
 *
 * Not get_option(): a persistent object cache may hold an address that has been replaced since, and to pay that one is
 * worse than one more query.
 *
 * @return array The record as "text", empty when there is none, and a "mark" of its bytes, null when there is none.
 */
function brasslet_stored() {
	// The database makes the mark: it has the bytes, whatever their character set becomes on the way to PHP.
	$sql = 'SELECT option_value AS text, MD5( option_value ) AS mark FROM {options} WHERE option_name = %s';
	$row = $GLOBALS['wpdb']->get_row( brasslet_sql( $sql, BRASSLET_OPTION ), ARRAY_A );
	return is_array( $row ) ? $row : array(
		'text' => '',
		'mark' => null,
	);
}

/**
 * Reads the rows of a record.
 *
 * An early version kept a single row at the top level of the option. Such a record is read as it is, and becomes a list
 * of rows the next time that it is written.
 *
 * @param string $text The record.
 * @return array Rows by alias.
 */
function brasslet_rows_in( $text ) {
	$record = maybe_unserialize( $text );
	if ( ! is_array( $record ) ) {
		return array();
	}
	$stored = isset( $record['rows'] ) && is_array( $record['rows'] ) ? $record['rows'] : array( $record );
	$rows   = array();
	foreach ( $stored as $row ) {
		$alias = is_array( $row ) ? strtolower( brasslet_string( $row['alias'] ?? '' ) ) : '';
		if ( '' !== $alias ) {
			$rows[ $alias ] = array(
				'alias'   => $alias,
				'pubkey'  => brasslet_string( $row['pubkey'] ?? '' ),
				'address' => brasslet_string( $row['address'] ?? '' ),
				'house'   => brasslet_string( $row['house'] ?? '' ),
			);
		}
	}
	return $rows;
}

/**
 * Changes the published names, in one step for whoever else changes them at the same time.
 *
 * @param callable $change Gets the rows and returns those to keep, both by alias.
 * @return array|WP_Error The rows that the record has now, or why it is as it was.
 */
function brasslet_change( $change ) {
	$wpdb = $GLOBALS['wpdb'];
	// What the database complains of belongs into the log, and not before the JSON of the reply.
	$shown  = $wpdb->hide_errors();
	$token  = bin2hex( random_bytes( 16 ) );
	$unlock = function () use ( $wpdb, &$token ) {
		if ( '' !== $token ) {
			$sql   = 'DELETE FROM {options} WHERE option_name = %s AND option_value = %s';
			$sql   = brasslet_sql( $sql, BRASSLET_LOCK, $token );
			$token = '';
			$wpdb->query( $sql );
		}
	};
	// Where another plugin ends PHP by exit, or PHP itself does by a fatal error, nothing runs what "finally" holds.
	register_shutdown_function( $unlock );
	try {
		$locked = brasslet_lock( $token );
		return is_wp_error( $locked ) ? $locked : brasslet_change_locked( $change );
	} finally {
		$unlock();
		$wpdb->show_errors( $shown );
	}
}

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

/**
 * Changes the published names while the lock is held.
 *
 * Who sleeps so long that others take the lock over finds the record changed when writing, and starts again from there.
 *
 * @param callable $change Gets the rows and returns those to keep, both by alias.
 * @return array|WP_Error The rows that the record has now, or that the database refused them.
 */
function brasslet_change_locked( $change ) {
	for ( $tries = 0; $tries < BRASSLET_WRITE_TRIES; $tries++ ) {
		if ( $tries > 0 ) {
			brasslet_pause();
		}
		$stored = brasslet_stored();
		$rows   = $change( brasslet_rows_in( $stored['text'] ) );
		if ( brasslet_put_rows( $rows, $stored['mark'] ) ) {
			return $rows;
		}
	}
	return brasslet_store_error();
}

/**
 * Replaces the published names, unless the record has changed since it was read.
 *
 * @param array       $rows Rows by alias, in the order to keep them in.
 * @param string|null $mark The mark of the record that the rows were made from; null when there was none.
 * @return bool Whether the record is what it should be.
 */
function brasslet_put_rows( $rows, $mark ) {
	$list = array();
	foreach ( $rows as $row ) {
		if ( '' !== ( $row['alias'] ?? '' ) ) {
			$list[] = array(
				'alias'   => $row['alias'],
				'pubkey'  => $row['pubkey'] ?? '',
				'address' => $row['address'] ?? '',
				'house'   => $row['house'] ?? '',
			);
		}
	}
	$text = maybe_serialize( array( 'rows' => $list ) );
	// WordPress 6.6 has a new word for an option that is not loaded with every page.
	$off = function_exists( 'wp_autoload_values_to_autoload' ) ? 'off' : 'no';
	if ( null === $mark ) {
		$sql = 'INSERT IGNORE INTO {options} ( option_value, autoload, option_name ) VALUES ( %s, %s, %s )';
		$sql = brasslet_sql( $sql, $text, $off, BRASSLET_OPTION );
	} else {
		$sql = 'UPDATE {options} SET option_value = %s, autoload = %s'
			. ' WHERE option_name = %s AND MD5( option_value ) = %s';
		$sql = brasslet_sql( $sql, $text, $off, BRASSLET_OPTION, $mark );
	}
	$GLOBALS['wpdb']->query( $sql );
	brasslet_forget_cached();
	// The number of rows that a database reports says too little: it is 0 also where nothing had to change.
	return brasslet_stored()['text'] === $text;
}

/**
 * Fills in a statement.
 *
 * @param string $sql       The statement, with "{options}" for the options table and "%s" for every value.
 * @param string ...$values The values.
 * @return string
 */
function brasslet_sql( $sql, ...$values ) {
	$wpdb = $GLOBALS['wpdb'];
	return $wpdb->prepare( str_replace( '{options}', $wpdb->options, $sql ), $values );
}

// phpcs:enable

/**
 * Has WordPress' object cache forget the record, for whoever reads it by get_option().
 */
function brasslet_forget_cached() {
	wp_cache_delete( BRASSLET_OPTION, 'options' );
	foreach ( array( 'alloptions', 'notoptions' ) as $list ) {
		$cached = wp_cache_get( $list, 'options', true );
		if ( is_array( $cached ) && array_key_exists( BRASSLET_OPTION, $cached ) ) {
			wp_cache_delete( $list, 'options' );
		}
	}
}

/**
 * The refusal for a write that the database did not take.
 *
 * @return WP_Error
 */
function brasslet_store_error() {
	return brasslet_error(
		'brasslet_store',
		'The database of the site did not take the name. Ask the host of the site whether it is full or read-only.',
		500
	);
}
