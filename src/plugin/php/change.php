<?php

// phpcs:disable WordPress.DB -- the record is the database's own, and brasslet_sql() prepares each statement.

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
	$off  = brasslet_not_autoloaded();
	if ( null === $mark ) {
		$sql = 'INSERT IGNORE INTO {options} ( option_value, autoload, option_name ) VALUES ( %s, %s, %s )';
		$sql = brasslet_sql( $sql, $text, $off, BRASSLET_OPTION );
	} else {
		$sql = 'UPDATE {options} SET option_value = %s, autoload = %s'
			. ' WHERE option_name = %s AND MD5( option_value ) = %s';
		$sql = brasslet_sql( $sql, $text, $off, BRASSLET_OPTION, $mark );
	}
	$GLOBALS['wpdb']->query( $sql );
	brasslet_forget_cached( BRASSLET_OPTION );
	// The number of rows that a database reports says too little: it is 0 also where nothing had to change.
	return brasslet_stored()['text'] === $text;
}

// phpcs:enable

/**
 * Has WordPress' object cache forget an option, so that get_option() reads what the database has.
 *
 * @param string $option The option.
 */
function brasslet_forget_cached( $option ) {
	wp_cache_delete( $option, 'options' );
	foreach ( array( 'alloptions', 'notoptions' ) as $list ) {
		$cached = wp_cache_get( $list, 'options', true );
		if ( is_array( $cached ) && array_key_exists( $option, $cached ) ) {
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
