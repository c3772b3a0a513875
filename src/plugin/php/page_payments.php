<?php

/**
 * Changes the switch, or tries the broadcaster, as the button in the form says. WordPress calls nothing of the page for
 * who may not manage the site's options.
 */
function brasslet_change_payments() {
	// phpcs:disable WordPress.Security.NonceVerification -- brasslet_prepare_page() has verified it.
	if ( 'try' === $_POST['brasslet_payments'] ) {
		$found = brasslet_try_broadcaster();
		brasslet_say( '' === $found ? 'The broadcaster answers this site as ARC services do.' : $found, '' === $found );
		return;
	}
	// phpcs:disable WordPress.Security.ValidatedSanitizedInput -- both are refused by rules of their own.
	$address = trim( brasslet_string( wp_unslash( $_POST['broadcaster'] ?? '' ) ) );
	$key     = trim( brasslet_string( wp_unslash( $_POST['key'] ?? '' ) ) );
	$found   = brasslet_save_payments(
		isset( $_POST['on'] ),
		brasslet_tidy_address( $address ),
		isset( $_POST['forget'] ) ? '' : $key,
		isset( $_POST['forget'] )
	);
	// phpcs:enable
	brasslet_say( '' === $found ? 'Saved.' : $found, '' === $found );
}

/**
 * Tidies an address as people type it, or copy it from an example of a request.
 *
 * @param string $address The address.
 * @return string Without "/v1/tx" and slashes at its end, and with its host in small letters.
 */
function brasslet_tidy_address( $address ) {
	$address = preg_replace( '#(/v1(/tx)?)?/*$#D', '', $address );
	$host    = strlen( 'https://' ) + strcspn( $address, '/', strlen( 'https://' ) );
	return strtolower( substr( $address, 0, $host ) ) . substr( $address, $host );
}

/**
 * Stores the switch, the broadcaster and its key. Payments are switched on only when the broadcaster answers.
 *
 * @param bool   $on      Whether to switch payments on.
 * @param string $address The address of the broadcaster.
 * @param string $key     Its key; empty to keep the one that is stored.
 * @param bool   $forget  Whether to forget that one.
 * @return string Empty when all is as it should be; otherwise a sentence.
 */
function brasslet_save_payments( $on, $address, $key, $forget ) {
	$refusal = brasslet_payments_obstacle( $address );
	if ( '' !== $refusal ) {
		return $refusal . ' Nothing was changed.';
	}
	if ( '' !== $key && 1 !== preg_match( BRASSLET_BROADCASTER_KEY_RULE, $key ) ) {
		return 'A key has no blanks, and no letters beyond ASCII. Copy it again. Nothing was changed.';
	}
	$before = brasslet_payments();
	$stored = brasslet_broadcaster_key( $address );
	if ( '' === $key && ! $forget && null === $stored ) {
		return 'The stored key is not for this broadcaster, or the salts have changed.'
			. ' Type the key, or tick that it is to be forgotten. Nothing was changed.';
	}
	$is_new = $address !== $before['broadcaster'] || '' !== $key || $forget;

	$before['broadcaster'] = $address;
	$before['on']          = $on && $before['on'] && ! $is_new;

	$unsaved = 'The database of the site did not take it. Ask the host of the site whether it is full or read-only.';
	$is_kept = '' === $key && ! $forget;
	if ( ! brasslet_store_payments( $before )
		|| ( ! $is_kept && ! brasslet_store_broadcaster_key( $address, $key ) ) ) {
		return $unsaved;
	}
	if ( ! $on || $before['on'] ) {
		return '';
	}
	$refusal = brasslet_try_broadcaster();
	if ( '' !== $refusal ) {
		return 'Saved, but not switched on. ' . $refusal;
	}
	$before['on']     = true;
	$before['secret'] = brasslet_payment_secret();
	return brasslet_store_payments( $before ) ? '' : $unsaved;
}

/**
 * Stores the switch.
 *
 * @param array $payments What brasslet_payments() is to read.
 * @return bool Whether it does.
 */
function brasslet_store_payments( $payments ) {
	update_option( BRASSLET_PAYMENTS, $payments, true );
	// What WordPress remembers of its own write need not be what the database has.
	brasslet_forget_cached( BRASSLET_PAYMENTS );
	return brasslet_payments() === $payments;
}

/**
 * Asks the broadcaster for its policy, which needs the key but no transaction.
 *
 * @return string Empty when it answers as ARC does; otherwise a sentence.
 */
function brasslet_try_broadcaster() {
	$reply = brasslet_ask_broadcaster( '/v1/policy', array( 'method' => 'GET' ) );
	if ( is_wp_error( $reply ) ) {
		return 'brasslet_no_key' === $reply->get_error_code()
			? $reply->get_error_message()
			: sprintf(
				'The broadcaster cannot be reached (%s).',
				rtrim( $reply->get_error_message(), '.' )
			) . ' Look at its address, and ask your host whether this server may send requests there.';
	}
	$status = (int) wp_remote_retrieve_response_code( $reply );
	if ( 401 === $status || 403 === $status ) {
		return 'The broadcaster wants another key. Type the one that its operator has given you.';
	}
	$document = json_decode( wp_remote_retrieve_body( $reply ), true );
	if ( 200 !== $status || ! is_array( $document['policy'] ?? null ) ) {
		return sprintf( 'What answers there is no ARC service (HTTP status %d).', $status )
			. ' Type the address that its operator names before "/v1/tx".';
	}
	return '';
}

/**
 * Has the page say something above its title.
 *
 * @param string $sentence The sentence, as plain text.
 * @param bool   $is_good  Whether what was wanted has happened.
 */
function brasslet_say( $sentence, $is_good ) {
	add_settings_error( 'brasslet', 'brasslet_said', esc_html( $sentence ), $is_good ? 'success' : 'error' );
}
